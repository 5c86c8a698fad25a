// A user exception: a structure of its own node kind.
#ifndef AST_EXCEPTION_H
#define AST_EXCEPTION_H

#include "AST_Structure.h"

class AST_Exception : public AST_Structure {
public:
    explicit AST_Exception(Identifier name) : AST_Structure(NT_except, std::move(name)) {}
    static AST_Exception* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_except ? static_cast<AST_Exception*>(d) : nullptr; }
    long accept(Visitor* v) override;
};

#endif
