#include "VIS_HH_ABC_OpArg_Typedef.h"

#include <ostream>

VIS_HH_ABC_OpArg_Typedef::VIS_HH_ABC_OpArg_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
}

long VIS_HH_ABC_OpArg_Typedef::visit_type(AST_Type* t)
{
    write_piece(mapping().param(t, m_mode));
    return 1;
}
