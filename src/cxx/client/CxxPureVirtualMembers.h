// Writes the pure virtual member functions of an interface's or value type's
// operations and attributes in the client header: each operation followed by
// an empty line, each attribute's reader followed by an empty line and, for a
// writable attribute, its writer.
#ifndef CXXPUREVIRTUALMEMBERS_H
#define CXXPUREVIRTUALMEMBERS_H

#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"

class CxxPureVirtualMembers {
public:
    explicit CxxPureVirtualMembers(VIS_Cxx* v);

    // Writes `d` when it is an operation or an attribute and answers
    // whether it was one.
    bool write(AST_Decl* d);

private:
    VE_HH_OpDecl m_op_decl;
    VE_HH_AttrDecl m_attr_decl;
    VIS_Cxx* m_visitor;
};

#endif
