#include "VIS_Client_DeclDispStreamable_Factory.h"

#include "VIS_Client_DeclDispStreamable.h"

const char* const VIS_Client_DeclDispStreamable_Factory::FFKey = "VIS_Client_DeclDispStreamable";
char VIS_Client_DeclDispStreamable_Factory::narrow_tag = 0;

VIS_Client_DeclDispStreamable* VIS_Client_DeclDispStreamable_Factory::create_VIS_Client_DeclDispStreamable(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, const char* strm_name, const char* var_name, const char* addr_expr, const char* orb_name, long usage, AST_Decl* decl)
{
    return new VIS_Client_DeclDispStreamable(os, level, scope, gen, strm_name, var_name, addr_expr, orb_name, usage, decl); // the caller deletes it after use
}
