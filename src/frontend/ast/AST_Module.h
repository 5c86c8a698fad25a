// One opening of an IDL module. Each opening is its own node, in
// declaration order; a later opening answers is_reopened().
#ifndef AST_MODULE_H
#define AST_MODULE_H

#include "AST_Decl.h"
#include "UTL_Scope.h"

class AST_Module : public AST_Decl, public UTL_Scope {
public:
    explicit AST_Module(Identifier name, AST_Module* previous_opening = nullptr)
        : AST_Decl(NT_module, std::move(name)), m_previous(previous_opening)
    {
    }
    static AST_Module* narrow_from_decl(AST_Decl* d) { return d && (d->node_type() == NT_module || d->node_type() == NT_root) ? static_cast<AST_Module*>(d) : nullptr; }

    // Non-zero when a module of the same name was opened earlier in the
    // same enclosing scope (in this file or an included one).
    long is_reopened() const { return m_previous != nullptr; }
    // The opening just before this one, or null for the first opening.
    AST_Module* previous_opening() const { return m_previous; }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

protected:
    AST_Module(NodeType type, Identifier name) : AST_Decl(type, std::move(name)) {}

private:
    AST_Module* m_previous = nullptr;
};

#endif
