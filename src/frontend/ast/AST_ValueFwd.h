// A forward declaration of a value type.
#ifndef AST_VALUEFWD_H
#define AST_VALUEFWD_H

#include "AST_ForwardT.h"
#include "AST_Value.h"

class AST_ValueFwd : public AST_ForwardT<AST_ValueFwd, AST_Value, AST_Decl::NT_value_fwd> {
public:
    using AST_ForwardT::AST_ForwardT;
    long accept(Visitor* v) override;
};

#endif
