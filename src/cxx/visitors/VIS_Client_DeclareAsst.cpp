#include "VIS_Client_DeclareAsst.h"

#include <ostream>

VIS_Client_DeclareAsst::VIS_Client_DeclareAsst(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen,
                                               long usage)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), m_usage(usage)
{
}

long VIS_Client_DeclareAsst::visit_type(AST_Type* t)
{
    write_piece(mapping().streamable(t));
    return 1;
}
