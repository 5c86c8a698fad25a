// The client header's constant emitter: "const T NAME = value;" at
// namespace level, "static constexpr T NAME = value;" inside a class
// (strings as character pointers, fixed values as CORBA::Fixed).
#ifndef VE_HH_MAINSTARTPOINT_CONSTANT_H
#define VE_HH_MAINSTARTPOINT_CONSTANT_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Constant : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Constant(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
