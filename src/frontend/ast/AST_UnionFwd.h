// A forward declaration of a union.
#ifndef AST_UNIONFWD_H
#define AST_UNIONFWD_H

#include "AST_Union.h"

class AST_UnionFwd : public AST_Type {
public:
    AST_UnionFwd(Identifier name, AST_Union* full) : AST_Type(NT_union_fwd, std::move(name)), m_full(full) {}
    static AST_UnionFwd* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_union_fwd ? static_cast<AST_UnionFwd*>(d) : nullptr; }
    AST_Union* full_definition() const { return m_full; }
    long accept(Visitor* v) override;

private:
    AST_Union* m_full;
};

#endif
