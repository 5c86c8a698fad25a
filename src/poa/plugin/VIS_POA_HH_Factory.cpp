#include "VIS_POA_HH_Factory.h"

#include "VIS_POA_HH.h"

const char* const VIS_POA_HH_Factory::FFKey = "VIS_POA_HH";
char VIS_POA_HH_Factory::narrow_tag = 0;

VIS_POA_HH* VIS_POA_HH_Factory::create_VIS_POA_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_POA_HH(os, level, scope, gen);
}
