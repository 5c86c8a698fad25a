#include "VIS_Client_SetTypeCode.h"

#include "CxxNaming.h"

#include <ostream>

VIS_Client_SetTypeCode::VIS_Client_SetTypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), m_any(yvlocalvar("any"))
{
}

long VIS_Client_SetTypeCode::visit_type(AST_Type* t)
{
    printer().print("$any$.type($tc$);\n", {{"any", m_any}, {"tc", mapping().typecode(t)}});
    return 1;
}
