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

#include <sstream>
#include <vector>

namespace {

// The tied object, as each forwarding call names it.
const char* const TIED = "YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->";

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

void VE_POA_TIE_HH_Interface::output_tie_name(AST_Interface* i)
{
    DefaultOutputVisitor names(os(), resolver());
    os() << "POA_";
    resolver().output_fully_scoped_name_with_visitor(os(), i, &names, "_");
    os() << "_tie";
}

void VE_POA_TIE_HH_Interface::output_tie(AST_Interface* i)
{
    at_indent() << "template<class _YV_Cxx_T_>\n";
    at_indent() << "class ";
    output_tie_name(i);
    os() << " :\n";
    indent().increment();
    at_indent() << "public virtual " << POA_OutputVisitor::skeleton_scoped_name(resolver(), i, "::") << ",\n";
    for (AST_Interface* base : i->inherits())
        at_indent() << "public virtual " << POA_OutputVisitor::skeleton_scoped_name(resolver(), base, "_")
                    << "_tie<_YV_Cxx_T_>,\n";
    at_indent() << "public virtual YV_POA_TieBase<_YV_Cxx_T_>\n";
    indent().decrement();
    os() << "{\n";

    os() << "  public:\n";
    indent().increment();
    output_ctors(i);
    indent().decrement();

    os() << "  public:\n";
    indent().increment();
    output_methods(i);
    indent().decrement();

    os() << "\n  private:\n";
    indent().increment();
    output_private(i);
    indent().decrement();

    os() << "};\n\n";
}

void VE_POA_TIE_HH_Interface::output_ctor(AST_Interface* i, std::initializer_list<const char*> params,
                                          const char* base_args)
{
    at_indent();
    output_tie_name(i);
    os() << "(\n";
    indent().increment();
    for (const char* p : params)
        at_indent() << p << "\n";
    indent().decrement();
    at_indent() << ") : YV_POA_TieBase<_YV_Cxx_T_>(" << base_args << ") {}\n\n";
}

void VE_POA_TIE_HH_Interface::output_ctors(AST_Interface* i)
{
    output_ctor(i, {"_YV_Cxx_T_& t"}, "t");
    output_ctor(i, {"_YV_Cxx_T_& t,", "PortableServer::POA_ptr poa"}, "t, poa");
    output_ctor(i, {"_YV_Cxx_T_* tp,", "CORBA::Boolean release = 1"}, "tp, release");
    output_ctor(i, {"_YV_Cxx_T_* tp,", "PortableServer::POA_ptr poa,", "CORBA::Boolean release = 1"},
                "tp, poa, release");

    at_indent() << "~";
    output_tie_name(i);
    os() << "()\n";
    at_indent() << "{\n";
    at_indent() << "}\n\n";

    indent().decrement();
    at_indent() << "  protected:\n";
    indent().increment();
    at_indent();
    output_tie_name(i);
    os() << "() {}\n\n";
}

void VE_POA_TIE_HH_Interface::output_private(AST_Interface* i)
{
    at_indent();
    output_tie_name(i);
    os() << "(const ";
    output_tie_name(i);
    os() << "<_YV_Cxx_T_>&);\n";

    at_indent();
    output_tie_name(i);
    os() << "<_YV_Cxx_T_>& operator=(const ";
    output_tie_name(i);
    os() << "<_YV_Cxx_T_>&);\n";
}

void VE_POA_TIE_HH_Interface::output_methods(AST_Interface* i)
{
    UTL_FilterList members;
    members.insertFilter(AST_Decl::NT_op);
    members.insertFilter(AST_Decl::NT_attr);
    for (UTL_InclusiveFilteredScopeActiveIterator it(i, UTL_Scope::IK_decls, members); !it.is_done(); it.next()) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(it.item()))
            output_operation(op);
        else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(it.item()))
            output_attribute(a);
    }
}

void VE_POA_TIE_HH_Interface::output_forwarding_body(const std::string& statement)
{
    at_indent() << "{\n";
    indent().increment();
    at_indent() << statement << "\n";
    indent().decrement();
    at_indent() << "}\n";
}

void VE_POA_TIE_HH_Interface::output_operation(AST_Operation* op)
{
    POA_RootScope fully_scoped(visitor());
    VE_HH_OpDecl(visitor(), nullptr, nullptr, nullptr, 1, 1, "%s").visit(op);
    os() << "\n";

    UTL_FilterList arguments;
    arguments.insertFilter(AST_Decl::NT_argument);
    std::vector<AST_Decl*> args;
    for (UTL_InclusiveFilteredScopeActiveIterator it(op, UTL_Scope::IK_decls, arguments); !it.is_done(); it.next())
        args.push_back(it.item());

    std::ostringstream call;
    call << (returns_void(op) ? "" : "return ") << TIED << resolver().local_name(op) << "(";
    for (std::size_t n = 0; n < args.size(); ++n)
        call << (n ? ", " : "") << resolver().local_name(args[n]);
    call << ");";
    output_forwarding_body(call.str());
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
    os() << "\n";
    const std::string name = resolver().local_name(a);
    output_forwarding_body("return " + std::string(TIED) + name + "();");
    os() << "\n";
}

void VE_POA_TIE_HH_Interface::output_attr_set(AST_Attribute* a)
{
    {
        POA_RootScope fully_scoped(visitor());
        VE_HH_AttrDecl(visitor(), nullptr, nullptr, nullptr, 1, 1, "_yvvar_%s").output_set(a);
    }
    os() << "\n";
    const std::string name = resolver().local_name(a);
    output_forwarding_body(std::string(TIED) + name + "(_yvvar_" + name + ");");
    os() << "\n";
}
