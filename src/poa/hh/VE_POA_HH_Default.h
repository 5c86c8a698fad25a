// The emitter that writes nothing (value boxes get no skeleton text).
#ifndef VE_POA_HH_DEFAULT_H
#define VE_POA_HH_DEFAULT_H

#include "VE_Cxx.h"

class VE_POA_HH_Default : public virtual VE_Cxx {
public:
    explicit VE_POA_HH_Default(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl*) override { return 1; }
};

#endif
