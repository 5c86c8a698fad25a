// The skeleton header's visitor: hands each node to the header emitter registered for its kind.
#ifndef VIS_POA_HH_H
#define VIS_POA_HH_H

#include "VIS_Cxx.h"

class VIS_POA_HH : public virtual VIS_Cxx {
public:
    VIS_POA_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    ~VIS_POA_HH() override;
    // "VIS_POA_HH", the same text as VIS_POA_HH_Factory::FFKey.
    const char* name() override;
};

#endif
