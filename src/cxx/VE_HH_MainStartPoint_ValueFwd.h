// The client header's emitter for forward-declared value types; the base of
// the value-type emitter.
#ifndef VE_HH_MAINSTARTPOINT_VALUEFWD_H
#define VE_HH_MAINSTARTPOINT_VALUEFWD_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_ValueFwd : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_ValueFwd(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
