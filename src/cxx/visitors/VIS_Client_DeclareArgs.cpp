#include "VIS_Client_DeclareArgs.h"

#include "AST_Argument.h"
#include "NameResolver.h"

#include <ostream>

VIS_Client_DeclareArgs::VIS_Client_DeclareArgs(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen,
                                               AST_Argument* arg)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), m_arg(arg)
{
}

long VIS_Client_DeclareArgs::visit_type(AST_Type* t)
{
    const CxxTypeMapping::Mode mode = m_arg ? CxxTypeMapping::mode_of(m_arg->direction()) : CxxTypeMapping::M_in;
    printer().print("$type$ $name$;\n", {{"type", mapping().storage(t, mode)}, {"name", resolver().local_name(m_arg)}});
    return 1;
}
