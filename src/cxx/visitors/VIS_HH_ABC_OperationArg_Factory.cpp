#include "VIS_HH_ABC_OperationArg_Factory.h"

#include "VIS_HH_ABC_OperationArg.h"

const char* const VIS_HH_ABC_OperationArg_Factory::FFKey = "VIS_HH_ABC_OperationArg";
char VIS_HH_ABC_OperationArg_Factory::narrow_tag = 0;

VIS_HH_ABC_OperationArg* VIS_HH_ABC_OperationArg_Factory::create_VIS_HH_ABC_OperationArg(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_HH_ABC_OperationArg(os, level, scope, gen); // the caller deletes it after use
}
