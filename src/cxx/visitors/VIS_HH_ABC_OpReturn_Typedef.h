// Writes the C++ result type of a typedef'd type (the typedef's name in the
// result's form), inline; the same text as VIS_HH_ABC_OpReturn.
#ifndef VIS_HH_ABC_OPRETURN_TYPEDEF_H
#define VIS_HH_ABC_OPRETURN_TYPEDEF_H

#include "VIS_HH_ABC_OpReturn.h"

class VIS_HH_ABC_OpReturn_Typedef : public virtual VIS_HH_ABC_OpReturn {
public:
    VIS_HH_ABC_OpReturn_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_HH_ABC_OpReturn_Typedef"; }
};

#endif
