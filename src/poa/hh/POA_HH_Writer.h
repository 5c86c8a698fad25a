// The text shapes that the skeleton header's emitters share: class heads
// and bodies, and member declarations laid out one parameter per line.
// Everything is written on the visitor's stream at the visitor's current
// indentation level.
#ifndef POA_HH_WRITER_H
#define POA_HH_WRITER_H

#include <initializer_list>
#include <iosfwd>
#include <string>

class VIS_Cxx;

class POA_HH_Writer {
public:
    explicit POA_HH_Writer(VIS_Cxx* v) : m_visitor(v) {}

    // "class ", the export macro and a blank when export macros are on,
    // then `name`; no line end (the base-class list follows).
    void class_head(const std::string& name);
    // "{" / "  public:" / one level deeper: "virtual ~<name>();" and an
    // empty line. The level stays one deeper for the members.
    void class_open(const std::string& name);
    // Back one level: "};" and an empty line.
    void class_close();

    // <head>( / each parameter one level deeper / <close> / an empty line.
    void call_block(const std::string& head, std::initializer_list<const char*> params, const char* close);
    // <type> / <name>( / parameters / ); / an empty line.
    void member(const std::string& type, const std::string& name, std::initializer_list<const char*> params);
    // The declaration of the static dispatch function <name>_yvgen_dispatch.
    void dispatch(const std::string& name);

private:
    std::ostream& at_indent();

    VIS_Cxx* m_visitor;
};

#endif
