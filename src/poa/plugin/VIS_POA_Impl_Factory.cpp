#include "VIS_POA_Impl_Factory.h"

#include "VIS_POA_Impl.h"

const char* const VIS_POA_Impl_Factory::FFKey = "VIS_POA_Impl";
char VIS_POA_Impl_Factory::narrow_tag = 0;

VIS_POA_Impl* VIS_POA_Impl_Factory::create_VIS_POA_Impl(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_POA_Impl(os, level, scope, gen);
}
