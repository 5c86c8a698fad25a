#include "VIS_Client_DeclareArgs_Typedef.h"

#include "CxxNaming.h"

#include <ostream>

VIS_Client_DeclareArgs_Typedef::VIS_Client_DeclareArgs_Typedef(std::ostream& os, int level, UTL_Scope* scope,
                                                               CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), m_variable(yvlocalvar("value"))
{
}

long VIS_Client_DeclareArgs_Typedef::visit_type(AST_Type* t)
{
    printer().print("$type$ $name$;\n", {{"type", mapping().storage(t, m_mode)}, {"name", m_variable}});
    return 1;
}
