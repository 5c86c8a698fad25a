#include "VIS_Client_DeclareAsst_Factory.h"

#include "VIS_Client_DeclareAsst.h"

const char* const VIS_Client_DeclareAsst_Factory::FFKey = "VIS_Client_DeclareAsst";
char VIS_Client_DeclareAsst_Factory::narrow_tag = 0;

VIS_Client_DeclareAsst* VIS_Client_DeclareAsst_Factory::create_VIS_Client_DeclareAsst(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, long usage)
{
    return new VIS_Client_DeclareAsst(os, level, scope, gen, usage); // the caller deletes it after use
}
