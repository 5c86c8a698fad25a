#include "VE_HH_OpDecl.h"

#include "AST_Argument.h"
#include "AST_Operation.h"
#include "CxxMemberDeclaration.h"
#include "CxxNaming.h"
#include "CxxTypeMapping.h"
#include "GEN_CPlusPlus.h"
#include "NameResolver.h"


VE_HH_OpDecl::VE_HH_OpDecl(VIS_Cxx* v, HHExtraVisit* first, HHExtraVisit* second, Visitor_i* output_visitor, long l1,
                           long l2, const char* param_format)
    : VE_Cxx(v), m_first(first), m_second(second), m_output_visitor(output_visitor), m_l1(l1), m_l2(l2),
      m_param_format(param_format ? param_format : "%s")
{
}

long VE_HH_OpDecl::visit(AST_Decl* d)
{
    AST_Operation* op = AST_Operation::narrow_from_decl(d);
    if (!op)
        throw Visitor_i::NarrowFailure(visitor(), d);

    CxxTypeMapping map(resolver(), visitor()->scope());
    map.qualify_against(capture_guard_of(visitor()->generator()));
    CxxMemberDeclaration decl(map.param(op->return_type(), CxxTypeMapping::M_return), resolver().local_name(op));
    if (m_output_visitor)
        decl.set_name_writer([this, op](std::ostream&) { op->accept(m_output_visitor); });
    decl.reserve_parameters(op->decls().size());
    for (const auto& member : op->decls()) {
        AST_Argument* arg = AST_Argument::narrow_from_decl(member.get());
        if (arg)
            decl.add_parameter(map.param(arg->field_type(), CxxTypeMapping::mode_of(arg->direction())),
                               apply_name_format(m_param_format, resolver().local_name(arg)));
    }
    decl.write(os(), indent(), m_first, m_second);
    return 1;
}
