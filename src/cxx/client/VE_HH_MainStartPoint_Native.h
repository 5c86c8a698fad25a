// The client header's native emitter. A native type has no mapping of its
// own; an opaque pointer stands in for it, so that the operations of local
// interfaces that use it can be declared ("typedef void* N;"). It has a
// type code (tk_native) like every named type.
#ifndef VE_HH_MAINSTARTPOINT_NATIVE_H
#define VE_HH_MAINSTARTPOINT_NATIVE_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Native : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Native(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
