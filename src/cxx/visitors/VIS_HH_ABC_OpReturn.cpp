#include "VIS_HH_ABC_OpReturn.h"

#include <ostream>

VIS_HH_ABC_OpReturn::VIS_HH_ABC_OpReturn(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
}

long VIS_HH_ABC_OpReturn::visit_type(AST_Type* t)
{
    write_piece(mapping().param(t, CxxTypeMapping::M_return));
    return 1;
}
