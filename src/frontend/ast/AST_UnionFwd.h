// A forward declaration of a union.
#ifndef AST_UNIONFWD_H
#define AST_UNIONFWD_H

#include "AST_ForwardT.h"
#include "AST_Union.h"

class AST_UnionFwd : public AST_ForwardT<AST_UnionFwd, AST_Union, AST_Decl::NT_union_fwd> {
public:
    using AST_ForwardT::AST_ForwardT;
    long accept(Visitor* v) override;
};

#endif
