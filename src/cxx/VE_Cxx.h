// The base of C++ emitters: an element of one visitor's table, writing to
// that visitor's stream with that visitor's indentation.
//
// Text is written through printer(): whole statements with named values,
// blocks for indentation (see CxxPrinter).
#ifndef VE_CXX_H
#define VE_CXX_H

#include "CxxPrinter.h"
#include "VIS_Cxx.h"

#include <ostream>

class VE_Cxx : public virtual Visitor_i::VisitorElement {
public:
    explicit VE_Cxx(VIS_Cxx* v) : m_visitor(v) {}

    VIS_Cxx* visitor() const { return m_visitor; }
    std::ostream& os() const { return m_visitor->stream(); }
    UTL_Indent& indent() const { return m_visitor->indent(); }
    NameResolver& resolver() const { return m_visitor->resolver(); }
    CodeGenerator* generator() const { return m_visitor->generator(); }

protected:
    // A writer on the visitor's stream and indentation, at the start of a
    // line.
    CxxPrinter printer() const { return CxxPrinter(os(), indent()); }

    // For emitters that still stream their text themselves (the client
    // generator's): writes the indentation of the current level and
    // returns the stream.
    std::ostream& at_indent() const { return os() << indent(); }

    // Writes each element of `items` with `each(os, item)`, `sep` between two.
    template <class Range, class Each>
    void write_list(const Range& items, const char* sep, Each each) const
    {
        bool first = true;
        for (const auto& item : items) {
            if (!first)
                os() << sep;
            first = false;
            each(os(), item);
        }
    }

private:
    VIS_Cxx* m_visitor;
};

#endif
