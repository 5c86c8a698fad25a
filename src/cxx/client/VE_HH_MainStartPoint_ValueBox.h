// The client header's value box emitter: a reference-counted class holding
// one value of the boxed type, with constructors, _value accessors, a deep
// _copy_value, _downcast and the type id.
#ifndef VE_HH_MAINSTARTPOINT_VALUEBOX_H
#define VE_HH_MAINSTARTPOINT_VALUEBOX_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_ValueBox : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_ValueBox(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
