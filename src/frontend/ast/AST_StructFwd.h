// A forward declaration of a structure.
#ifndef AST_STRUCTFWD_H
#define AST_STRUCTFWD_H

#include "AST_ForwardT.h"
#include "AST_Structure.h"

class AST_StructFwd : public AST_ForwardT<AST_StructFwd, AST_Structure, AST_Decl::NT_struct_fwd> {
public:
    using AST_ForwardT::AST_ForwardT;
    long accept(Visitor* v) override;
};

#endif
