#include "VIS_POA_TIE_HH_Factory.h"

#include "VIS_POA_TIE_HH.h"

const char* const VIS_POA_TIE_HH_Factory::FFKey = "VIS_POA_TIE_HH";
char VIS_POA_TIE_HH_Factory::narrow_tag = 0;

VIS_POA_TIE_HH* VIS_POA_TIE_HH_Factory::create_VIS_POA_TIE_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_POA_TIE_HH(os, level, scope, gen);
}
