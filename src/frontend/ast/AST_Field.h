// A named member of a given type: structure and exception members, and the
// base of arguments, attributes, union branches and state members. The type
// is never owned by the field.
#ifndef AST_FIELD_H
#define AST_FIELD_H

#include "AST_Decl.h"
#include "AST_Type.h"

class AST_Field : public AST_Decl {
public:
    AST_Field(AST_Type* type, Identifier name) : AST_Decl(NT_field, std::move(name)), m_type(type) {}
    static AST_Field* narrow_from_decl(AST_Decl* d) { return d && (d->node_type() == NT_field || d->node_type() == NT_argument || d->node_type() == NT_attr || d->node_type() == NT_union_branch || d->node_type() == NT_state_member) ? static_cast<AST_Field*>(d) : nullptr; }

    AST_Type* field_type() const { return m_type; }
    long accept(Visitor* v) override;

protected:
    AST_Field(NodeType kind, AST_Type* type, Identifier name) : AST_Decl(kind, std::move(name)), m_type(type) {}

private:
    AST_Type* m_type;
};

#endif
