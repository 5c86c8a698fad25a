#include "VIS_Client_SetTypeCode_Factory.h"

#include "VIS_Client_SetTypeCode.h"

const char* const VIS_Client_SetTypeCode_Factory::FFKey = "VIS_Client_SetTypeCode";
char VIS_Client_SetTypeCode_Factory::narrow_tag = 0;

VIS_Client_SetTypeCode* VIS_Client_SetTypeCode_Factory::create_VIS_Client_SetTypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_Client_SetTypeCode(os, level, scope, gen); // the caller deletes it after use
}
