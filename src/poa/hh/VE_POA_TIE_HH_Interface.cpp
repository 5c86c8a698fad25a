#include "VE_POA_TIE_HH_Interface.h"

#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "DefaultOutputVisitor.h"
#include "GEN_POACxx.h"
#include "NameResolver.h"
#include "POA_OutputVisitor.h"
#include "POA_RootScope.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"
#include "YV_ScratchStream.h"

#include <string>

namespace {

bool returns_void(AST_Operation* op)
{
    AST_PredefinedType* pt = AST_PredefinedType::narrow_from_decl(op->return_type());
    return pt && pt->pt() == AST_PredefinedType::PT_void;
}

} // namespace

long VE_POA_TIE_HH_Interface::visit(AST_Decl* d)
{
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (!i->is_local() && GEN_POACxx::narrow_from_gen(generator())->poa_interfaces_on())
        output_tie(i);
    return 1;
}

std::string VE_POA_TIE_HH_Interface::tie_name(AST_Interface* i)
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    DefaultOutputVisitor names(text, resolver());
    text << "POA_";
    resolver().output_fully_scoped_name_with_visitor(text, i, &names, "_");
    text << "_tie";
    return text_buf.str();
}

void VE_POA_TIE_HH_Interface::output_tie_name(AST_Interface* i)
{
    printer().raw("$tie$", {{"tie", tie_name(i)}});
}

// The braces and the access labels of the class start in the first column
// (fixed); the members are one level deeper than the class.
void VE_POA_TIE_HH_Interface::output_tie(AST_Interface* i)
{
    CxxPrinter p = printer();
    p.print("template<class _YV_Cxx_T_>\nclass ");
    output_tie_name(i);
    p.print(" :\n");
    {
        auto bases = p.deeper();
        p.print("public virtual $skeleton$,\n", {{"skeleton", POA_OutputVisitor::skeleton_scoped_name(resolver(), i, "::")}});
        for (AST_Interface* base : i->inherits())
            p.print("public virtual $base$_tie<_YV_Cxx_T_>,\n",
                    {{"base", POA_OutputVisitor::skeleton_scoped_name(resolver(), base, "_")}});
        p.print("public virtual YV_POA_TieBase<_YV_Cxx_T_>\n");
    }
    p.raw("{\n");
    auto section = [&p](std::string_view label, auto members) {
        p.raw(label);
        auto deeper = p.deeper();
        members();
    };
    section("  public:\n", [&] { output_ctors(i); });
    section("  public:\n", [&] { output_methods(i); });
    section("\n  private:\n", [&] { output_private(i); });
    p.raw("};\n\n");
}

void VE_POA_TIE_HH_Interface::output_ctors(AST_Interface* i)
{
    const std::string tie = tie_name(i);
    const CxxPrinter::Vars vars = {{"tie", tie}};
    CxxPrinter p = printer();
    auto ctor = [&](std::string_view params, std::string_view base_args) {
        p.print("$tie$(\n", vars);
        {
            auto deeper = p.deeper();
            p.print(params);
        }
        p.print(") : YV_POA_TieBase<_YV_Cxx_T_>($args$) {}\n\n", {{"args", base_args}});
    };
    ctor("_YV_Cxx_T_& t\n", "t");
    ctor("_YV_Cxx_T_& t,\nPortableServer::POA_ptr poa\n", "t, poa");
    ctor("_YV_Cxx_T_* tp,\nCORBA::Boolean release = 1\n", "tp, release");
    ctor("_YV_Cxx_T_* tp,\nPortableServer::POA_ptr poa,\nCORBA::Boolean release = 1\n", "tp, poa, release");
    p.print("~$tie$()\n{\n}\n\n", vars);

    // The label stands at the class's level.
    p.outdent();
    p.print("  protected:\n");
    p.indent();
    p.print("$tie$() {}\n\n", vars);
}

// Declared and never defined: a TIE object is neither copied nor assigned.
void VE_POA_TIE_HH_Interface::output_private(AST_Interface* i)
{
    printer().print("$tie$(const $tie$<_YV_Cxx_T_>&);\n"
                    "$tie$<_YV_Cxx_T_>& operator=(const $tie$<_YV_Cxx_T_>&);\n",
                    {{"tie", tie_name(i)}});
}

void VE_POA_TIE_HH_Interface::output_methods(AST_Interface* i)
{
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(d))
            output_operation(op);
        else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d))
            output_attribute(a);
    }
}

// The declaration has no line end of its own; the body follows on the next
// line. `tail` ends the body: an operation's adds no empty line.
void VE_POA_TIE_HH_Interface::output_forwarding_body(std::string_view call, CxxPrinter::Vars vars, std::string_view tail)
{
    CxxPrinter p = printer();
    p.print("\n");
    {
        auto body = p.block();
        p.print(call, vars);
    }
    p.print(tail);
}

void VE_POA_TIE_HH_Interface::output_operation(AST_Operation* op)
{
    {
        POA_RootScope fully_scoped(visitor());
        VE_HH_OpDecl(visitor(), nullptr, nullptr, nullptr, 1, 1, "%s").visit(op);
    }
    std::string args;
    for (AST_Decl* arg : UTL_InclusiveFilteredScopeActiveIterator::decls_of(op, {AST_Decl::NT_argument}))
        args += (args.empty() ? "" : ", ") + resolver().local_name(arg);
    output_forwarding_body("$return$YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->$op$($args$);\n",
                           {{"return", returns_void(op) ? "" : "return "}, {"op", resolver().local_name(op)}, {"args", args}},
                           "");
}

void VE_POA_TIE_HH_Interface::output_attribute(AST_Attribute* a)
{
    output_attr_get(a);
    if (!a->readonly())
        output_attr_set(a);
}

void VE_POA_TIE_HH_Interface::output_attr_get(AST_Attribute* a)
{
    {
        POA_RootScope fully_scoped(visitor());
        VE_HH_AttrDecl(visitor(), nullptr, nullptr, nullptr, 1, 1, "_yvvar_%s").output_get(a);
    }
    output_forwarding_body("return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->$attr$();\n", {{"attr", resolver().local_name(a)}},
                           "\n");
}

void VE_POA_TIE_HH_Interface::output_attr_set(AST_Attribute* a)
{
    {
        POA_RootScope fully_scoped(visitor());
        VE_HH_AttrDecl(visitor(), nullptr, nullptr, nullptr, 1, 1, "_yvvar_%s").output_set(a);
    }
    output_forwarding_body("YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->$attr$(_yvvar_$attr$);\n",
                           {{"attr", resolver().local_name(a)}}, "\n");
}
