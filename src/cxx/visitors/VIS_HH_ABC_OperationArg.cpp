#include "VIS_HH_ABC_OperationArg.h"

#include "AST_Argument.h"

#include <ostream>

VIS_HH_ABC_OperationArg::VIS_HH_ABC_OperationArg(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
}

long VIS_HH_ABC_OperationArg::visit_AST_Argument(AST_Argument* n)
{
    write_piece(mapping().param(n->field_type(), CxxTypeMapping::mode_of(n->direction())));
    return 1;
}

long VIS_HH_ABC_OperationArg::visit_type(AST_Type* t)
{
    write_piece(mapping().param(t, m_mode));
    return 1;
}
