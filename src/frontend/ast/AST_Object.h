// CORBA::Object: an object reference of no particular interface.
#ifndef AST_OBJECT_H
#define AST_OBJECT_H

#include "AST_Type.h"

class AST_Object : public AST_Type {
public:
    AST_Object() : AST_Type(NT_object, Identifier("Object")) {}
    static AST_Object* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_object ? static_cast<AST_Object*>(d) : nullptr; }
    long accept(Visitor* v) override;
};

#endif
