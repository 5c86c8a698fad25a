// The skeleton header's emitter for value types: a value type supporting a
// non-local interface gets a skeleton class deriving from the value type's
// class and from the supported interface's skeleton.
#ifndef VE_POA_HH_VALUE_H
#define VE_POA_HH_VALUE_H

#include "VE_HH_MainStartPoint_Value.h"

class AST_Value;

class VE_POA_HH_Value : public virtual VE_HH_MainStartPoint_Value {
public:
    explicit VE_POA_HH_Value(VIS_Cxx* v) : VE_Cxx(v), VE_HH_MainStartPoint_ValueFwd(v), VE_HH_MainStartPoint_Value(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void output_poa(AST_Value* v);
    virtual void output_poa_inherits(AST_Value* v);
};

#endif
