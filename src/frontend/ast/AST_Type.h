// The base of every node that names a type.
#ifndef AST_TYPE_H
#define AST_TYPE_H

#include "AST_Decl.h"

class AST_Type : public AST_Decl {
public:
    using AST_Decl::AST_Decl;
    static AST_Type* narrow_from_decl(AST_Decl* d) { return d ? d->as_type() : nullptr; }
    AST_Type* as_type() override { return this; }
};

#endif
