// The text shapes that the skeleton header's emitters share: class heads
// and bodies, and member declarations laid out one parameter per line.
// Everything is written through a CxxPrinter on the visitor's stream, at
// the visitor's current indentation level.
#ifndef POA_HH_WRITER_H
#define POA_HH_WRITER_H

#include "CxxPrinter.h"

#include <initializer_list>
#include <string>
#include <string_view>

class VIS_Cxx;

class POA_HH_Writer {
public:
    explicit POA_HH_Writer(VIS_Cxx* v);

    CxxPrinter& printer() { return m_printer; }

    // "class ", the export macro and a blank when export macros are on,
    // then `name`; no line end (the base-class list follows).
    void class_head(std::string_view name);
    // The class body: "{" / "  public:" / one level deeper
    // "virtual ~<name>();" and an empty line; when the body ends, back one
    // level, "};" and an empty line.
    [[nodiscard]] CxxPrinter::Block class_body(std::string_view name);

    // <type> / <name>( / parameters one level deeper / ); / an empty line.
    void member(std::string_view type, std::string_view name, std::initializer_list<std::string_view> params);
    // The declaration of the static dispatch function <name>_yvgen_dispatch.
    void dispatch(const std::string& name);

private:
    VIS_Cxx* m_visitor;
    CxxPrinter m_printer;
};

#endif
