#include "VE_HH_AttrDecl.h"

#include "AST_Attribute.h"
#include "CxxMemberDeclaration.h"
#include "CxxNaming.h"
#include "CxxTypeMapping.h"
#include "GEN_CPlusPlus.h"
#include "NameResolver.h"

#include <ostream>

VE_HH_AttrDecl::VE_HH_AttrDecl(VIS_Cxx* v, HHExtraVisit* first, HHExtraVisit* second, Visitor_i* output_visitor,
                               long l1, long l2, const char* param_format)
    : VE_Cxx(v), m_first(first), m_second(second), m_output_visitor(output_visitor), m_l1(l1), m_l2(l2),
      m_param_format(param_format ? param_format : "%s")
{
}

long VE_HH_AttrDecl::visit(AST_Decl* d)
{
    AST_Attribute* a = AST_Attribute::narrow_from_decl(d);
    if (!a)
        throw Visitor_i::NarrowFailure(visitor(), d);
    output_get(a);
    if (!a->readonly()) {
        printer().print("\n");
        output_set(a);
    }
    return 1;
}

void VE_HH_AttrDecl::output_get(AST_Attribute* a)
{
    CxxTypeMapping map(resolver(), visitor()->scope());
    map.qualify_against(capture_guard_of(visitor()->generator()));
    CxxMemberDeclaration decl(map.param(a->field_type(), CxxTypeMapping::M_return), resolver().local_name(a));
    if (m_output_visitor)
        decl.set_name_writer([this, a](std::ostream&) { a->accept(m_output_visitor); });
    decl.write(os(), indent(), m_first, m_second);
}

void VE_HH_AttrDecl::output_set(AST_Attribute* a)
{
    CxxTypeMapping map(resolver(), visitor()->scope());
    map.qualify_against(capture_guard_of(visitor()->generator()));
    const std::string name = resolver().local_name(a);
    CxxMemberDeclaration decl("void", name);
    if (m_output_visitor)
        decl.set_name_writer([this, a](std::ostream&) { a->accept(m_output_visitor); });
    decl.add_parameter(map.param(a->field_type(), CxxTypeMapping::M_in), apply_name_format(m_param_format, name));
    decl.write(os(), indent(), m_first, m_second);
    // A complete declaration (one with an extra visit, such as a pure
    // virtual writer) ends its line, so that what its caller writes next
    // starts on a line of its own; a bare one stops at ")" for a body.
    if (m_first || m_second)
        printer().print("\n");
}
