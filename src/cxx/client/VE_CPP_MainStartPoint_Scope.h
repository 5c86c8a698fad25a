// The client source file's emitter for the root and for modules: their
// declarations are visited; the scope itself writes nothing.
#ifndef VE_CPP_MAINSTARTPOINT_SCOPE_H
#define VE_CPP_MAINSTARTPOINT_SCOPE_H

#include "VE_Cxx.h"

class VE_CPP_MainStartPoint_Scope : public virtual VE_Cxx {
public:
    explicit VE_CPP_MainStartPoint_Scope(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
