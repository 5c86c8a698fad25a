// A native type: native Name;
#ifndef AST_NATIVE_H
#define AST_NATIVE_H

#include "AST_Type.h"

class AST_Native : public AST_Type {
public:
    explicit AST_Native(Identifier name) : AST_Type(NT_native, std::move(name)) {}
    static AST_Native* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_native ? static_cast<AST_Native*>(d) : nullptr; }
    long accept(Visitor* v) override;
};

#endif
