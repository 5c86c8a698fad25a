#include "VIS_HH_ABC_OpReturn_Factory.h"

#include "VIS_HH_ABC_OpReturn.h"

const char* const VIS_HH_ABC_OpReturn_Factory::FFKey = "VIS_HH_ABC_OpReturn";
char VIS_HH_ABC_OpReturn_Factory::narrow_tag = 0;

VIS_HH_ABC_OpReturn* VIS_HH_ABC_OpReturn_Factory::create_VIS_HH_ABC_OpReturn(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_HH_ABC_OpReturn(os, level, scope, gen); // the caller deletes it after use
}
