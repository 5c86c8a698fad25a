// The base of C++ generating visitors: the output stream, the indentation
// at a given level, the scope being visited and the generator.
#ifndef VIS_CXX_H
#define VIS_CXX_H

#include "UTL_Indent.h"
#include "Visitor_i.h"

#include <iosfwd>

class NameResolver;

class VIS_Cxx : public virtual Visitor_i {
public:
    VIS_Cxx(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
        : Visitor_i(scope, gen), m_os(os), m_indent(level)
    {
    }

    std::ostream& stream() const { return m_os; }
    UTL_Indent& indent() { return m_indent; }
    // The generator's name resolver in effect.
    NameResolver& resolver() const;

    const char* name() override { return "VIS_Cxx"; }

private:
    std::ostream& m_os;
    UTL_Indent m_indent;
};

#endif
