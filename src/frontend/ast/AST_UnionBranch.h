// A branch of a union: a member with one or more labels.
#ifndef AST_UNIONBRANCH_H
#define AST_UNIONBRANCH_H

#include "AST_Field.h"
#include "AST_UnionLabel.h"

#include <vector>

class AST_UnionBranch : public AST_Field {
public:
    AST_UnionBranch(std::vector<AST_UnionLabel> labels, AST_Type* type, Identifier name)
        : AST_Field(NT_union_branch, type, std::move(name)), m_labels(std::move(labels))
    {
    }
    static AST_UnionBranch* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_union_branch ? static_cast<AST_UnionBranch*>(d) : nullptr; }
    const std::vector<AST_UnionLabel>& labels() const { return m_labels; }
    long accept(Visitor* v) override;

private:
    std::vector<AST_UnionLabel> m_labels;
};

#endif
