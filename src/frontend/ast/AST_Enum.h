// An enumeration. Its scope holds its enumerators (AST_EnumVal) in order.
#ifndef AST_ENUM_H
#define AST_ENUM_H

#include "AST_Type.h"
#include "UTL_Scope.h"

#include <vector>

class AST_EnumVal;

class AST_Enum : public AST_Type, public UTL_Scope {
public:
    explicit AST_Enum(Identifier name) : AST_Type(NT_enum, std::move(name)) {}
    static AST_Enum* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_enum ? static_cast<AST_Enum*>(d) : nullptr; }
    std::vector<AST_EnumVal*> enumerators() const;
    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;
};

#endif
