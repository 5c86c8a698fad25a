// A structure. Its scope holds its members (AST_Field) and any types
// defined inside it, in declaration order.
#ifndef AST_STRUCTURE_H
#define AST_STRUCTURE_H

#include "AST_Type.h"
#include "UTL_Scope.h"

#include <vector>

class AST_Field;

class AST_Structure : public AST_Type, public UTL_Scope {
public:
    explicit AST_Structure(Identifier name) : AST_Type(NT_struct, std::move(name)) {}
    static AST_Structure* narrow_from_decl(AST_Decl* d) { return d && (d->node_type() == NT_struct || d->node_type() == NT_except) ? static_cast<AST_Structure*>(d) : nullptr; }

    // The members, in declaration order (nested type definitions left out).
    std::vector<AST_Field*> fields() const;

    bool is_defined() const { return m_defined; }
    void set_defined(bool d) { m_defined = d; }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

protected:
    AST_Structure(NodeType kind, Identifier name) : AST_Type(kind, std::move(name)) {}

private:
    bool m_defined = false;
};

#endif
