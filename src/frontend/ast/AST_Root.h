// The root of the tree: the file scope. Owns the predefined types.
#ifndef AST_ROOT_H
#define AST_ROOT_H

#include "AST_Module.h"

class AST_Root : public AST_Module {
public:
    AST_Root() : AST_Module(NT_root, Identifier("")) {}
    static AST_Root* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_root ? static_cast<AST_Root*>(d) : nullptr; }
    long accept(Visitor* v) override;
};

#endif
