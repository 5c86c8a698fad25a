// The client header's emitter for a forward-declared union: the C++
// forward declaration and, once per type, its companion types.
#ifndef VE_HH_MAINSTARTPOINT_UNIONFWD_H
#define VE_HH_MAINSTARTPOINT_UNIONFWD_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_UnionFwd : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_UnionFwd(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
