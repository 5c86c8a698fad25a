// The TIE pass over the skeleton header: hands modules, interfaces and back-end blocks to the TIE emitters.
#ifndef VIS_POA_TIE_HH_H
#define VIS_POA_TIE_HH_H

#include "VIS_Cxx.h"

class VIS_POA_TIE_HH : public virtual VIS_Cxx {
public:
    VIS_POA_TIE_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    ~VIS_POA_TIE_HH() override;
    // "VIS_POA_TIE_HH", the same text as VIS_POA_TIE_HH_Factory::FFKey.
    const char* name() override;
};

#endif
