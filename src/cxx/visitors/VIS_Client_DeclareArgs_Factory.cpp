#include "VIS_Client_DeclareArgs_Factory.h"

#include "VIS_Client_DeclareArgs.h"

const char* const VIS_Client_DeclareArgs_Factory::FFKey = "VIS_Client_DeclareArgs";
char VIS_Client_DeclareArgs_Factory::narrow_tag = 0;

VIS_Client_DeclareArgs* VIS_Client_DeclareArgs_Factory::create_VIS_Client_DeclareArgs(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, AST_Argument* arg)
{
    return new VIS_Client_DeclareArgs(os, level, scope, gen, arg); // the caller deletes it after use
}
