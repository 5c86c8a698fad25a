#include "VE_POA_HH_Interface.h"

#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "CxxTypeQueries.h"
#include "GEN_POACxx.h"
#include "NameResolver.h"
#include "POA_HH_Writer.h"
#include "POA_OutputVisitor.h"
#include "POA_RootScope.h"
#include "PureVirtualHHVisit.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_MainStartPoint_Interface.h"
#include "VE_HH_OpDecl.h"
#include "idl_msg_header.h"

#include <memory>

void VE_POA_HH_Interface::DispatchMethodWithNative::output_exception(std::ostream& os)
{
    idl_msg_header(m_decl->line(), m_decl->column(), m_decl->file_name());
    os << "POA Error. Cannot generate a POA dispatch method that contains a " << "native type." << std::endl;
}

long VE_POA_HH_Interface::visit(AST_Decl* d)
{
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (i->is_local())
        return 1;
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    if (gen->poa_interfaces_on())
        output_poa(i);
    if (gen->ami_callbacks_on()) {
        VE_HH_MainStartPoint_Interface client(visitor());
        std::unique_ptr<AST_Interface> handler(client.create_full_ami_handler(i));
        // No handler of the handler: callbacks are off while it is written.
        gen->set_options("+xAMICallbacks", 0, 1);
        output_poa(handler.get());
        gen->set_options("-xAMICallbacks", 1, 0);
        handler.reset();
        printer().print("\n\n");
    }
    return 1;
}

void VE_POA_HH_Interface::output_poa(AST_Interface* i)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    POA_HH_Writer w(visitor());
    CxxPrinter& p = w.printer();
    const std::string skeleton = POA_OutputVisitor::skeleton_name(resolver(), i);

    w.class_head(skeleton);
    output_poa_inherits(i);
    p.print("\n");
    auto body = w.class_body(skeleton);
    if (gen->dispatch_on() && !i->is_abstract())
        w.member("PortableServer::ServantBase::_YV_DispatcherPtr", "_lookup_dispatcher", {"const char* operation"});
    if (!i->is_abstract()) {
        p.indentation();
        resolver().output_full_scope(os(), i);
        p.print("$name$_ptr\n_this();\n\n", {{"name", resolver().local_name(i)}});
        w.member("virtual CORBA::Boolean", "_yv_is_a", {"const YV_FWString& _id"});
        w.member("virtual CORBA::RepositoryId", "_primary_interface",
                 {"const PortableServer::ObjectId& oid", "PortableServer::POA_ptr poa"});
    }
    output_narrow(i);
    output_methods(i);
}

// Without bases the one base line is ended here, so that the caller's
// line end leaves an empty line (fixed).
void VE_POA_HH_Interface::output_poa_inherits(AST_Interface* i)
{
    CxxPrinter p = printer();
    p.continue_line();
    p.print(" :\n");
    auto bases = p.deeper();
    if (i->inherits().empty())
        p.print("virtual public PortableServer::ServantBase\n");
    p.list(i->inherits(), ",\n", [&](AST_Interface* base) {
        p.print("virtual public $base$",
                {{"base", POA_OutputVisitor::skeleton_name_in_scope(resolver(), base, visitor()->scope(), "::")}});
    });
}

void VE_POA_HH_Interface::output_narrow(AST_Interface* i)
{
    POA_HH_Writer w(visitor());
    if (!GEN_POACxx::narrow_from_gen(generator())->RTTI_support()) {
        w.member("virtual void*", "_local_narrow", {"const char* tag"});
        w.printer().print("static char _narrow_tag;\n\n");
    }
    const std::string skeleton = POA_OutputVisitor::skeleton_name_in_scope(resolver(), i, visitor()->scope(), "::");
    w.member("static " + skeleton + "*", "_narrow", {"PortableServer::ServantBase* _servant"});
}

void VE_POA_HH_Interface::output_methods(AST_Interface* i)
{
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(d))
            output_operation(op);
        else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d))
            output_attribute(a);
    }
}

void VE_POA_HH_Interface::output_operation(AST_Operation* op)
{
    {
        POA_RootScope fully_scoped(visitor());
        VE_HH_OpDecl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s").visit(op);
        printer().print("\n\n");
    }
    if (GEN_POACxx::narrow_from_gen(generator())->dispatch_on()) {
        if (op_has_natives(op))
            throw DispatchMethodWithNative(op);
        POA_HH_Writer(visitor()).dispatch(resolver().local_name(op));
    }
}

void VE_POA_HH_Interface::output_attribute(AST_Attribute* a)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    output_attr_get(a);
    printer().print("\n");
    if (gen->dispatch_on()) {
        if (attr_has_natives(a))
            throw DispatchMethodWithNative(a);
        output_dispatch_get(a);
    }
    if (!a->readonly()) {
        output_attr_set(a);
        if (gen->dispatch_on())
            output_dispatch_set(a);
    }
}

void VE_POA_HH_Interface::output_attr_get(AST_Attribute* a)
{
    POA_RootScope fully_scoped(visitor());
    VE_HH_AttrDecl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "_yvvar_%s").output_get(a);
}

void VE_POA_HH_Interface::output_attr_set(AST_Attribute* a)
{
    POA_RootScope fully_scoped(visitor());
    VE_HH_AttrDecl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "_yvvar_%s").output_set(a);
}

void VE_POA_HH_Interface::output_dispatch_get(AST_Attribute* a)
{
    POA_HH_Writer(visitor()).dispatch("_get_" + resolver().local_name(a));
}

void VE_POA_HH_Interface::output_dispatch_set(AST_Attribute* a)
{
    POA_HH_Writer(visitor()).dispatch("_set_" + resolver().local_name(a));
}
