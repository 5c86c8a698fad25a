// A discriminated union. Its scope holds its branches (AST_UnionBranch) and
// any types defined inside it, in declaration order.
#ifndef AST_UNION_H
#define AST_UNION_H

#include "AST_Type.h"
#include "UTL_Scope.h"

#include <vector>

class AST_UnionBranch;

class AST_Union : public AST_Type, public UTL_Scope {
public:
    AST_Union(Identifier name, AST_Type* disc_type) : AST_Type(NT_union, std::move(name)), m_disc(disc_type) {}
    static AST_Union* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_union ? static_cast<AST_Union*>(d) : nullptr; }

    // The discriminator type as written (a typedef is not looked through).
    AST_Type* disc_type() const { return m_disc; }
    void set_disc_type(AST_Type* t) { m_disc = t; }
    std::vector<AST_UnionBranch*> branches() const;

    bool is_defined() const { return m_defined; }
    void set_defined(bool d) { m_defined = d; }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_disc;
    bool m_defined = false;
};

#endif
