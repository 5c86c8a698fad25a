// The client header's root emitter: hands each file-level declaration of
// the main IDL file to the visitor.
#ifndef VE_HH_MAINSTARTPOINT_ROOT_H
#define VE_HH_MAINSTARTPOINT_ROOT_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Root : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Root(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
