#include "VE_POA_Impl_Interface.h"

#include "YV_ScratchStream.h"

#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_String.h"
#include "GEN_POACxx.h"
#include "IDL_GlobalData.h"
#include "NameResolver.h"
#include "POA_DispatchNames.h"
#include "POA_OutputVisitor.h"
#include "POA_SkeletonNames.h"
#include "VE_HH_MainStartPoint_Interface.h"
#include "VIS_Client_DeclareAsst.h"
#include "CxxVisitorFactories.h"
#include "VIS_Client_TypeCode.h"

#include <memory>
#include <vector>

namespace {

const long streamable_class_usage = 0x8000;

} // namespace

VE_POA_Impl_Interface::VE_POA_Impl_Interface(VIS_Cxx* v)
    : VE_Cxx(v), VE_Client_Interface(v), ami_handler_on(0), ami_target(nullptr)
{
}

// ---------------------------------------------------------------- the walk

long VE_POA_Impl_Interface::visit(AST_Decl* d)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    if (!gen->poa_interfaces_on())
        return 1;
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (i->is_local())
        return 1;

    output_dtor(i);
    if (!i->is_abstract()) {
        output_this(i);
        output_is_a(i);
        output_primary_intf(i);
    }
    output_poa_narrow_all(i);
    if (gen->dispatch_on()) {
        if (!i->is_abstract())
            outputHashDispatch(i);
        output_methods(i);
    }

    if (gen->ami_callbacks_on()) {
        VE_HH_MainStartPoint_Interface client(visitor());
        // The reply handler is not part of the tree; it is ours to delete.
        std::unique_ptr<AST_Interface> handler(client.create_full_ami_handler(i));
        // With AMI callbacks off while it is written, the handler gets no
        // handler of its own.
        gen->set_options("+xAMICallbacks", 0, 1);
        ami_handler_on = 1;
        ami_target = i;
        visit(handler.get());
        ami_handler_on = 0;
        ami_target = nullptr;
        gen->set_options("-xAMICallbacks", 1, 0);
        handler.reset();
        // The handler's nodes are gone; another handler's may come to
        // their addresses.
        forget_kept_names();
        printer().print("\n\n");
    }
    return 1;
}

// -------------------------------------------------------- standard members
//
// Which lines of these definitions are indented and which start in the
// first column is fixed; in files written at level 0 both look the same.

void VE_POA_Impl_Interface::definition_head(CxxPrinter& p, const CxxPrinter::Text& head,
                                            const CxxPrinter::Text& params, CxxPrinter::Vars vars)
{
    p.raw(head, vars);
    {
        auto deeper = p.deeper();
        p.print(params, vars);
    }
    p.raw(")\n{\n");
}

void VE_POA_Impl_Interface::output_dtor(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    CxxPrinter p = printer();
    p.print("$skeleton$::~$own$()\n{\n", {{"skeleton", n.scoped(i)}, {"own", n.own(i)}});
    p.raw("}\n\n");
}

void VE_POA_Impl_Interface::output_this(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    const std::string client = n.client(i);
    const std::string scope = n.client_scope(i);
    const std::string local = n.local(i);
    const std::string skeleton = n.scoped(i);
    const CxxPrinter::Vars vars = {
        {"client", client}, {"scope", scope}, {"local", local}, {"skeleton", skeleton}};
    CxxPrinter p = printer();

    p.raw("$scope$$local$_ptr\n", vars);
    p.print("$skeleton$::_this()\n", vars);
    {
        auto body = p.block();
        p.print("CORBA::Object_var proxy = _this_impl($client$::_yv_fw_type_id.c_str());\n\n", vars);
        if (GEN_POACxx::narrow_from_gen(generator())->coloc_poa_on()) {
            // The blank before the line end of the "if" line is fixed.
            p.print("$client$_var typed_proxy = $client$::_narrow(proxy);\n"
                    "if (CORBA::is_nil(typed_proxy)) \n",
                    vars);
            {
                auto nil = p.block();
                p.print("typed_proxy = new $scope$YV_Gen_DynamicProxy_$local$(proxy);\n", vars);
            }
            p.print("\nreturn typed_proxy._retn();\n");
        } else {
            p.print("return new $scope$YV_Gen_DynamicProxy_$local$(proxy);\n", vars);
        }
    }
    p.print("\n");
}

// One test per interface of the inheritance graph, as one if/else-if chain.
void VE_POA_Impl_Interface::output_is_a(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    CxxPrinter p = printer();
    definition_head(p, "CORBA::Boolean\n$skeleton$::_yv_is_a(\n", "const YV_FWString& _id\n",
                    {{"skeleton", n.scoped(i)}});
    {
        auto body = p.block("", "}\n");
        p.print("CORBA::Boolean result = 0;\n\n");
        std::vector<AST_Interface*> all;
        long counter = 0;
        find_all_interfaces(i, all, counter);
        for (std::size_t k = 0; k < all.size(); ++k) {
            // Fixed: a later link begins with "else " in the first column,
            // then the line's indentation.
            if (k > 0) {
                p.raw("else ");
                p.indentation();
            }
            p.print("if (_id == $client$::_yv_fw_type_id) result = 1;\n", {{"client", n.client(all[k])}});
        }
        // Fixed: a line holding only the indentation, and an unindented
        // return.
        p.indentation();
        p.print("\n");
        p.raw("return result;\n");
    }
    p.print("\n");
}

void VE_POA_Impl_Interface::output_primary_intf(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    CxxPrinter p = printer();
    definition_head(p, "CORBA::RepositoryId\n$skeleton$::_primary_interface(\n",
                    "const PortableServer::ObjectId& /* oid */,\n"
                    "PortableServer::POA_ptr /* poa */\n",
                    {{"skeleton", n.scoped(i)}});
    {
        auto body = p.deeper();
        p.print("return CORBA::string_dup($client$::_yv_fw_type_id.c_str());\n", {{"client", n.client(i)}});
    }
    p.raw("}\n\n");
}

// ---------------------------------------------------------------- narrowing

void VE_POA_Impl_Interface::output_poa_narrow_all(AST_Interface* i)
{
    CxxPrinter p = printer();
    if (!GEN_POACxx::narrow_from_gen(generator())->RTTI_support()) {
        POA_OutputVisitor skeleton_names(os(), resolver());
        outputNarrowTag(i, &skeleton_names);
        p.print("\n");
        output_local_narrow(i, &skeleton_names, nullptr);
        p.print("\n");
    }
    output_poa_narrow(i);
    p.print("\n");
}

void VE_POA_Impl_Interface::output_poa_narrow(AST_Interface* i)
{
    const std::string skeleton = names().scoped(i);
    const CxxPrinter::Vars vars = {{"skeleton", skeleton}};
    CxxPrinter p = printer();
    definition_head(p, "$skeleton$*\n$skeleton$::_narrow(\n", "PortableServer::ServantBase* _poa\n", vars);
    {
        auto body = p.deeper();
        p.print("$skeleton$* _result = 0;\n\n", vars);
        {
            auto some = p.block("if (_poa != 0)\n{\n");
            if (GEN_POACxx::narrow_from_gen(generator())->RTTI_support())
                output_RTTI_poa_narrow(i);
            else
                output_no_RTTI_poa_narrow(i);
            p.print("\n");
        }
        p.print("return _result;\n");
    }
    p.raw("}\n\n");
}

void VE_POA_Impl_Interface::output_RTTI_poa_narrow(AST_Interface* i)
{
    printer().print("_result = dynamic_cast<$skeleton$*>(_poa);\n", {{"skeleton", names().scoped(i)}});
}

void VE_POA_Impl_Interface::output_no_RTTI_poa_narrow(AST_Interface* i)
{
    POA_OutputVisitor skeleton_names(os(), resolver());
    CxxPrinter p = printer();
    p.print("_result = YV_STATIC_CAST($skeleton$*, _poa->_local_narrow(&", {{"skeleton", names().scoped(i)}});
    outputNarrowTagVar(i, &skeleton_names);
    p.print("));\n");
}

// ----------------------------------------------------------- typecodes

void VE_POA_Impl_Interface::output_anonymous_typecodes(AST_Decl* d)
{
    std::vector<AST_Type*> types;
    if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
        types.reserve(arguments(op).size() + 1);
        for (AST_Argument* arg : arguments(op))
            types.push_back(arg->field_type());
        types.push_back(op->return_type());
    } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d)) {
        types.push_back(a->field_type());
    }
    for (AST_Type* t : types) {
        AST_String* s = AST_String::narrow_from_decl(t);
        if (!s || !s->anonymous())
            continue;
        VIS_Client_TypeCode_Factory* factory = VIS_Client_TypeCode_Factory::find_factory(GEN_POACxx::narrow_from_gen(generator())->visitorFF());
        // The factory hands the visitor over; it writes this one typecode.
        std::unique_ptr<VIS_Client_TypeCode> typecode(factory->create_VIS_Client_TypeCode(os(), indent().get_indent(), s->defined_in(), generator()));
        s->accept(typecode.get());
    }
}

// ---------------------------------------------------------------- helpers

POA_SkeletonNames VE_POA_Impl_Interface::names() const
{
    return POA_SkeletonNames(resolver());
}

const std::string& VE_POA_Impl_Interface::dispatch_function_name(AST_Decl* d, const char* accessor) const
{
    const std::size_t kind = accessor[0] == '\0' ? 0 : accessor[1] == 'g' ? 1 : 2;
    std::string& name = m_dispatch_names[d][kind];
    if (!name.empty())
        return name;
    AST_Interface* declaring = AST_Interface::narrow_from_decl(ScopeAsDecl(d->defined_in()));
    name = scoped_skeleton(declaring) + "::" + accessor + names().local(d) + "_yvgen_dispatch";
    return name;
}

const std::string& VE_POA_Impl_Interface::scoped_skeleton(AST_Interface* i) const
{
    std::string& kept = m_scoped_skeletons[i];
    if (kept.empty())
        kept = names().scoped(i);
    return kept;
}

void VE_POA_Impl_Interface::forget_kept_names()
{
    m_dispatch_names.clear();
    m_scoped_skeletons.clear();
    m_arguments.clear();
    m_streamables.clear();
    m_skeletons.clear();
}

const std::vector<AST_Argument*>& VE_POA_Impl_Interface::arguments(AST_Operation* op)
{
    auto kept = m_arguments.find(op);
    if (kept == m_arguments.end())
        kept = m_arguments.emplace(op, POA_DispatchNames::arguments_of(op)).first;
    return kept->second;
}

const std::string& VE_POA_Impl_Interface::skeleton_in_itself(AST_Interface* i)
{
    std::string& kept = m_skeletons[i];
    if (kept.empty())
        kept = names().seen_from(i, i);
    return kept;
}

const std::string& VE_POA_Impl_Interface::streamable_class(AST_Type* t)
{
    std::string& kept = m_streamables[t];
    if (!kept.empty())
        return kept;
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    VIS_Client_DeclareAsst_Factory* factory = VIS_Client_DeclareAsst_Factory::find_factory(GEN_POACxx::narrow_from_gen(generator())->visitorFF());
    // The factory hands the visitor over; it names this one class.
    std::unique_ptr<VIS_Client_DeclareAsst> declare(factory->create_VIS_Client_DeclareAsst(text, indent().get_indent(), root_scope(), generator(), streamable_class_usage));
    t->accept(declare.get());
    kept = text_buf.str();
    return kept;
}

std::string VE_POA_Impl_Interface::fully_scoped(AST_Decl* d) const
{
    return names().client(d);
}

UTL_Scope* VE_POA_Impl_Interface::root_scope() const
{
    return generator()->global_data()->root();
}
