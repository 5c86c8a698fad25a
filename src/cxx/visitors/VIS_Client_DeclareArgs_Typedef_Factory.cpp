#include "VIS_Client_DeclareArgs_Typedef_Factory.h"

#include "VIS_Client_DeclareArgs_Typedef.h"

const char* const VIS_Client_DeclareArgs_Typedef_Factory::FFKey = "VIS_Client_DeclareArgs_Typedef";
char VIS_Client_DeclareArgs_Typedef_Factory::narrow_tag = 0;

VIS_Client_DeclareArgs_Typedef* VIS_Client_DeclareArgs_Typedef_Factory::create_VIS_Client_DeclareArgs_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_Client_DeclareArgs_Typedef(os, level, scope, gen); // the caller deletes it after use
}
