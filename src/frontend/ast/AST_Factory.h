// A value type's factory (initialiser). Its scope holds its arguments.
#ifndef AST_FACTORY_H
#define AST_FACTORY_H

#include "AST_Decl.h"
#include "UTL_ExceptList.h"
#include "UTL_Scope.h"

class AST_Factory : public AST_Decl, public UTL_Scope {
public:
    explicit AST_Factory(Identifier name) : AST_Decl(NT_factory, std::move(name)) {}
    static AST_Factory* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_factory ? static_cast<AST_Factory*>(d) : nullptr; }
    UTL_ExceptList* exceptions() { return &m_raises; }
    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

private:
    UTL_ExceptList m_raises;
};

#endif
