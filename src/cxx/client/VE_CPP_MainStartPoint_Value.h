// The client source file's emitter for value types and value boxes: the
// type id and the type code, then the definitions of the types nested in a
// value type.
#ifndef VE_CPP_MAINSTARTPOINT_VALUE_H
#define VE_CPP_MAINSTARTPOINT_VALUE_H

#include "VE_CPP_MainStartPoint_Type.h"

class VE_CPP_MainStartPoint_Value : public virtual VE_CPP_MainStartPoint_Type {
public:
    explicit VE_CPP_MainStartPoint_Value(VIS_Cxx* v) : VE_Cxx(v), VE_CPP_MainStartPoint_Type(v) {}
    long visit(AST_Decl* d) override;
};

#endif
