// The base of C++ emitters: an element of one visitor's table, writing to
// that visitor's stream with that visitor's indentation.
//
// Text is written as whole statements: at_indent() starts a line at the
// current level, and the caller streams the pieces and "\n".
#ifndef VE_CXX_H
#define VE_CXX_H

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
    // Writes the indentation of the current level and returns the stream.
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
