// CORBA::ValueBase: a value of no particular value type.
#ifndef AST_VALUEBASE_H
#define AST_VALUEBASE_H

#include "AST_Type.h"

class AST_ValueBase : public AST_Type {
public:
    AST_ValueBase() : AST_Type(NT_valuebase, Identifier("ValueBase")) {}
    static AST_ValueBase* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_valuebase ? static_cast<AST_ValueBase*>(d) : nullptr; }
    long accept(Visitor* v) override;
};

#endif
