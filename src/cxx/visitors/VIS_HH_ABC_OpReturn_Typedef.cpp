#include "VIS_HH_ABC_OpReturn_Typedef.h"

VIS_HH_ABC_OpReturn_Typedef::VIS_HH_ABC_OpReturn_Typedef(std::ostream& os, int level, UTL_Scope* scope,
                                                         CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), VIS_HH_ABC_OpReturn(os, level, scope, gen)
{
}
