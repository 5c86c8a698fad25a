// The implementation file's value-type emitter: a value type that supports
// a non-local interface has a skeleton class, whose destructor is the one
// member defined here.
#ifndef VE_POA_IMPL_VALUE_H
#define VE_POA_IMPL_VALUE_H

#include "VE_Cxx.h"

class AST_Value;

class VE_POA_Impl_Value : public virtual VE_Cxx {
public:
    explicit VE_POA_Impl_Value(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void output_poa_impl(AST_Value* v);
};

#endif
