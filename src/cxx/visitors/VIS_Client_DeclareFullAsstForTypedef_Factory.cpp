#include "VIS_Client_DeclareFullAsstForTypedef_Factory.h"

#include "VIS_Client_DeclareFullAsstForTypedef.h"

const char* const VIS_Client_DeclareFullAsstForTypedef_Factory::FFKey = "VIS_Client_DeclareFullAsstForTypedef";
char VIS_Client_DeclareFullAsstForTypedef_Factory::narrow_tag = 0;

VIS_Client_DeclareFullAsstForTypedef* VIS_Client_DeclareFullAsstForTypedef_Factory::create_VIS_Client_DeclareFullAsstForTypedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
{
    return new VIS_Client_DeclareFullAsstForTypedef(os, level, scope, gen); // the caller deletes it after use
}
