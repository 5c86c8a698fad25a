#include "VIS_HH_ABC_OpReturn_Typedef_Factory.h"

#include "VIS_HH_ABC_OpReturn_Typedef.h"

const char* const VIS_HH_ABC_OpReturn_Typedef_Factory::FFKey = "VIS_HH_ABC_OpReturn_Typedef";
char VIS_HH_ABC_OpReturn_Typedef_Factory::narrow_tag = 0;

VIS_HH_ABC_OpReturn_Typedef* VIS_HH_ABC_OpReturn_Typedef_Factory::create_VIS_HH_ABC_OpReturn_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_HH_ABC_OpReturn_Typedef(os, level, scope, gen); // the caller deletes it after use
}
