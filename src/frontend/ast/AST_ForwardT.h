// What the forward declarations of interfaces, value types, structures and
// unions share: the node kind `Kind`, narrowing to the declaration class
// `Self`, and the full definition of class `Full` the declaration announces
// (not yet defined while is_defined() of it is false).
#ifndef AST_FORWARDT_H
#define AST_FORWARDT_H

#include "AST_Type.h"

template <class Self, class Full, AST_Decl::NodeType Kind>
class AST_ForwardT : public AST_Type {
public:
    AST_ForwardT(Identifier name, Full* full) : AST_Type(Kind, std::move(name)), m_full(full) {}
    static Self* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == Kind ? static_cast<Self*>(d) : nullptr; }
    Full* full_definition() const { return m_full; }

private:
    Full* m_full;
};

#endif
