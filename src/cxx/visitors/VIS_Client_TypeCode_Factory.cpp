#include "VIS_Client_TypeCode_Factory.h"

#include "VIS_Client_TypeCode.h"

const char* const VIS_Client_TypeCode_Factory::FFKey = "VIS_Client_TypeCode";
char VIS_Client_TypeCode_Factory::narrow_tag = 0;

VIS_Client_TypeCode* VIS_Client_TypeCode_Factory::create_VIS_Client_TypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_Client_TypeCode(os, level, scope, gen); // the caller deletes it after use
}
