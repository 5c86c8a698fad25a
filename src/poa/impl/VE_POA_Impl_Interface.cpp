#include "VE_POA_Impl_Interface.h"

#include "YV_ScratchStream.h"

#include "AST_Attribute.h"
#include "AST_Exception.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_String.h"
#include "AST_Typedef.h"
#include "CxxNaming.h"
#include "CxxTypeQueries.h"
#include "GEN_POACxx.h"
#include "IDL_GlobalData.h"
#include "NameResolver.h"
#include "POA_OutputVisitor.h"
#include "POA_SkeletonNames.h"
#include "UTL_ExceptlistActiveIterator.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "VE_HH_MainStartPoint_Interface.h"
#include "VIS_Client_DeclDispStreamable.h"
#include "VIS_Client_DeclDispStreamable_Factory.h"
#include "VIS_Client_DeclareArgs.h"
#include "VIS_Client_DeclareArgs_Factory.h"
#include "VIS_Client_DeclareAsst.h"
#include "VIS_Client_DeclareAsst_Factory.h"
#include "VIS_Client_TypeCode.h"
#include "VIS_Client_TypeCode_Factory.h"
#include "VIS_HH_ABC_OpReturn.h"
#include "VIS_HH_ABC_OpReturn_Factory.h"
#include "YV_hash_string.h"
#include "idl_msg_header.h"

#include <initializer_list>
#include <iostream>
#include <memory>
#include <new>
#include <sstream>
#include <vector>

namespace {

// Names of the generated dispatch functions' parameters and variables.
struct DispatchNames {
    std::string servant = yvparam("servant");
    std::string request = yvparam("request");
    std::string status = yvparam("status");
    std::string intf = yvlocalvar("intf");
    std::string nvlist = yvlocalvar("nvlist");
    std::string any = yvlocalvar("any");
    std::string result = yvlocalvar("result");
    std::string target_orb = yvlocalvar("target_orb");
    std::string retn = yvlocalvar("retn");
    std::string retn_any = yvlocalvar("retn_any");
    std::string named_values = yvlocalvar("named_values");
    std::string stack_nvlist = yvlocalvar("stack_nvlist");
};

const DispatchNames& dn()
{
    static const DispatchNames names;
    return names;
}

// The declarations of a scope of the given kinds, in declaration order.
std::vector<AST_Decl*> own_decls(UTL_Scope* s, std::initializer_list<AST_Decl::NodeType> kinds)
{
    UTL_FilterList filter;
    for (AST_Decl::NodeType k : kinds)
        filter.insertFilter(k);
    std::vector<AST_Decl*> found;
    for (UTL_InclusiveFilteredScopeActiveIterator it(s, UTL_Scope::IK_decls, filter); !it.is_done(); it.next())
        found.push_back(it.item());
    return found;
}

std::vector<AST_Argument*> arguments_of(AST_Operation* op)
{
    std::vector<AST_Argument*> args;
    for (AST_Decl* d : own_decls(op, {AST_Decl::NT_argument}))
        args.push_back(AST_Argument::narrow_from_decl(d));
    return args;
}

AST_Interface* declaring_interface(AST_Decl* d)
{
    return AST_Interface::narrow_from_decl(ScopeAsDecl(d->defined_in()));
}

AST_Type* resolved_type(AST_Type* t)
{
    while (t->node_type() == AST_Decl::NT_typedef)
        t = AST_Typedef::narrow_from_decl(t)->base_type();
    return t;
}

const char* direction_flag(AST_Argument::Direction d)
{
    switch (d) {
    case AST_Argument::dir_IN: return "CORBA::ARG_IN";
    case AST_Argument::dir_INOUT: return "CORBA::ARG_INOUT";
    case AST_Argument::dir_OUT: return "CORBA::ARG_OUT";
    }
    return "CORBA::ARG_IN";
}

// The usage value that tells the streamable declarer the value's direction.
long direction_usage(AST_Argument::Direction d)
{
    switch (d) {
    case AST_Argument::dir_IN: return 0x21;
    case AST_Argument::dir_INOUT: return 0x22;
    case AST_Argument::dir_OUT: return 0x24;
    }
    return 0x21;
}

const long result_usage = 0x28;
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
        os() << "\n\n";
    }
    return 1;
}

// -------------------------------------------------------- standard members

void VE_POA_Impl_Interface::output_dtor(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    at_indent() << n.scoped(i) << "::~" << n.own(i) << "()\n";
    at_indent() << "{\n";
    os() << "}\n\n";
}

void VE_POA_Impl_Interface::output_this(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    const std::string client = n.client(i);
    const std::string dynamic_proxy = n.client_scope(i) + "YV_Gen_DynamicProxy_" + n.local(i);

    os() << n.client_scope(i) << n.local(i) << "_ptr\n";
    at_indent() << n.scoped(i) << "::_this()\n";
    open_block();
    at_indent() << "CORBA::Object_var proxy = _this_impl(" << client << "::_yv_fw_type_id.c_str());\n\n";
    if (GEN_POACxx::narrow_from_gen(generator())->coloc_poa_on()) {
        at_indent() << client << "_var typed_proxy = " << client << "::_narrow(proxy);\n";
        at_indent() << "if (CORBA::is_nil(typed_proxy)) \n";
        open_block();
        at_indent() << "typed_proxy = new " << dynamic_proxy << "(proxy);\n";
        close_block();
        os() << "\n";
        at_indent() << "return typed_proxy._retn();\n";
    } else {
        at_indent() << "return new " << dynamic_proxy << "(proxy);\n";
    }
    close_block();
    os() << "\n";
}

// One test per interface of the inheritance graph, as one if/else-if chain
// whose later links begin with "else " in the first column.
void VE_POA_Impl_Interface::output_is_a(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    os() << "CORBA::Boolean\n";
    os() << n.scoped(i) << "::_yv_is_a(\n";
    at_indent_plus(1) << "const YV_FWString& _id\n";
    os() << ")\n";
    os() << "{\n";
    indent().increment();
    at_indent() << "CORBA::Boolean result = 0;\n\n";

    std::vector<AST_Interface*> all;
    long counter = 0;
    find_all_interfaces(i, all, counter);
    for (std::size_t k = 0; k < all.size(); ++k) {
        if (k > 0)
            os() << "else ";
        at_indent() << "if (_id == " << n.client(all[k]) << "::_yv_fw_type_id) result = 1;\n";
    }
    at_indent() << "\n";
    os() << "return result;\n";
    close_block();
    os() << "\n";
}

void VE_POA_Impl_Interface::output_primary_intf(AST_Interface* i)
{
    const POA_SkeletonNames n = names();
    os() << "CORBA::RepositoryId\n";
    os() << n.scoped(i) << "::_primary_interface(\n";
    at_indent_plus(1) << "const PortableServer::ObjectId& /* oid */,\n";
    at_indent_plus(1) << "PortableServer::POA_ptr /* poa */\n";
    os() << ")\n";
    os() << "{\n";
    at_indent_plus(1) << "return CORBA::string_dup(" << n.client(i) << "::_yv_fw_type_id.c_str());\n";
    os() << "}\n\n";
}

// ---------------------------------------------------------------- narrowing

void VE_POA_Impl_Interface::output_poa_narrow_all(AST_Interface* i)
{
    if (!GEN_POACxx::narrow_from_gen(generator())->RTTI_support()) {
        POA_OutputVisitor skeleton_names(os(), resolver());
        outputNarrowTag(i, &skeleton_names);
        os() << "\n";
        output_local_narrow(i, &skeleton_names, nullptr);
        os() << "\n";
    }
    output_poa_narrow(i);
    os() << "\n";
}

void VE_POA_Impl_Interface::output_poa_narrow(AST_Interface* i)
{
    const std::string skeleton = names().scoped(i);
    os() << skeleton << "*\n";
    os() << skeleton << "::_narrow(\n";
    at_indent_plus(1) << "PortableServer::ServantBase* _poa\n";
    os() << ")\n";
    os() << "{\n";
    indent().increment();
    at_indent() << skeleton << "* _result = 0;\n\n";
    at_indent() << "if (_poa != 0)\n";
    open_block();
    if (GEN_POACxx::narrow_from_gen(generator())->RTTI_support())
        output_RTTI_poa_narrow(i);
    else
        output_no_RTTI_poa_narrow(i);
    os() << "\n";
    close_block();
    at_indent() << "return _result;\n";
    indent().decrement();
    os() << "}\n\n";
}

void VE_POA_Impl_Interface::output_RTTI_poa_narrow(AST_Interface* i)
{
    at_indent() << "_result = dynamic_cast<" << names().scoped(i) << "*>(_poa);\n";
}

void VE_POA_Impl_Interface::output_no_RTTI_poa_narrow(AST_Interface* i)
{
    POA_OutputVisitor skeleton_names(os(), resolver());
    at_indent() << "_result = YV_STATIC_CAST(" << names().scoped(i) << "*, _poa->_local_narrow(&";
    outputNarrowTagVar(i, &skeleton_names);
    os() << "));\n";
}

// ----------------------------------------------------------- typecodes

void VE_POA_Impl_Interface::output_anonymous_typecodes(AST_Decl* d)
{
    std::vector<AST_Type*> types;
    if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
        for (AST_Argument* arg : arguments_of(op))
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

// ------------------------------------------------------ the dispatch frame

void VE_POA_Impl_Interface::output_methods(AST_Interface* i)
{
    for (AST_Decl* d : own_decls(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
        output_anonymous_typecodes(d);
        if (d->node_type() == AST_Decl::NT_op)
            output_op_dispatch(AST_Operation::narrow_from_decl(d));
        else
            output_attribute(AST_Attribute::narrow_from_decl(d));
    }
}

void VE_POA_Impl_Interface::output_attribute(AST_Attribute* a)
{
    output_get_dispatch(a);
    if (!a->readonly())
        output_set_dispatch(a);
}

void VE_POA_Impl_Interface::output_op_dispatch(AST_Operation* op)
{
    output_dispatch_head(op, "");
    output_dispatch_prolog(declaring_interface(op));
    output_op_dispatch_local(op);
    output_op_dispatch_remote(op);
    output_dispatch_epilog(op);
}

void VE_POA_Impl_Interface::output_get_dispatch(AST_Attribute* a)
{
    output_dispatch_head(a, "_get_");
    output_dispatch_prolog(declaring_interface(a));
    output_get_dispatch_local(a);
    output_get_dispatch_remote(a);
    output_dispatch_epilog(nullptr);
}

void VE_POA_Impl_Interface::output_set_dispatch(AST_Attribute* a)
{
    output_dispatch_head(a, "_set_");
    output_dispatch_prolog(declaring_interface(a));
    output_set_dispatch_local(a);
    output_set_dispatch_remote(a);
    output_dispatch_epilog(nullptr);
}

void VE_POA_Impl_Interface::output_dispatch_head(AST_Decl* d, const char* accessor)
{
    os() << "void\n";
    os() << dispatch_function_name(d, accessor) << "(\n";
}

// Leaves the level at the body level: one deeper than the function with
// the try block of raises enforcement, otherwise one deeper than that.
void VE_POA_Impl_Interface::output_dispatch_prolog(AST_Interface* i)
{
    const DispatchNames& v = dn();
    indent().increment();
    at_indent() << "PortableServer::ServantBase* " << v.servant << ",\n";
    at_indent() << "CORBA::YV_ServerRequest_ptr " << v.request << ",\n";
    at_indent() << "CORBA::CompletionStatus& " << v.status << "\n";
    indent().decrement();
    at_indent() << ")\n";
    os() << "{\n";
    indent().increment();
    if (GEN_POACxx::narrow_from_gen(generator())->enforce_raises_on()) {
        at_indent() << "try\n";
        open_block();
    }

    const std::string skeleton = names().seen_from(i, i);
    at_indent() << skeleton << "* " << v.intf << " = " << skeleton << "::_narrow(" << v.servant << ");\n\n";
    at_indent() << "CORBA::NVList_ptr " << v.nvlist << ";\n";
    at_indent() << "CORBA::Any *" << v.any << ";\n\n";
    at_indent() << "if (" << v.request << "->yv_setup(" << v.nvlist << ", " << v.any << "))\n";
}

void VE_POA_Impl_Interface::output_dispatch_epilog(AST_Operation* op)
{
    if (GEN_POACxx::narrow_from_gen(generator())->enforce_raises_on()) {
        close_block();  // the try block
        output_handler("CORBA::SystemException &", "throw;");
        if (op) {
            for (UTL_ExceptlistActiveIterator it(op->exceptions()); !it.is_done(); it.next())
                output_handler(fully_scoped(it.item()) + "&", "throw;");
        }
        output_handler("...", "throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);");
    }
    close_block();
    os() << "\n";
}

unsigned long VE_POA_Impl_Interface::calc_num_args(AST_Operation* op)
{
    return static_cast<unsigned long>(own_decls(op, {AST_Decl::NT_argument}).size());
}

long VE_POA_Impl_Interface::is_void(AST_Type* t)
{
    if (t->node_type() != AST_Decl::NT_pre_defined)
        return 0;
    return AST_PredefinedType::narrow_from_decl(t)->pt() == AST_PredefinedType::PT_void ? 1 : 0;
}

// -------------------------------------------------------- colocated bodies

void VE_POA_Impl_Interface::output_op_dispatch_local(AST_Operation* op)
{
    const DispatchNames& v = dn();
    open_block();
    output_op_dispatch_local_extract(op);
    output_op_dispatch_local_invoke(op);
    if (!is_void(op->return_type()))
        at_indent() << v.request << "->set_result(*" << v.any << ");\n";
    at_indent() << v.request << "->yv_respond();\n";
    close_block();
}

void VE_POA_Impl_Interface::output_op_dispatch_local_extract(AST_Operation* op)
{
    const DispatchNames& v = dn();
    AST_Type* rt = op->return_type();
    if (!is_void(rt)) {
        output_result_streamable(rt);
        output_op_dispatch_local_declare_and_extract_variable(rt, v.result.c_str(), AST_Argument::dir_IN, 1);
    }
    unsigned long position = 0;
    for (AST_Argument* arg : arguments_of(op)) {
        const std::string tmp = yvtmpvar(names().local(arg).c_str());
        output_op_dispatch_local_extract_streamable(arg->field_type(), position++, tmp.c_str());
        output_op_dispatch_local_declare_and_extract_variable(arg->field_type(), tmp.c_str(), arg->direction(), 0);
    }
}

void VE_POA_Impl_Interface::output_result_streamable(AST_Type* t)
{
    const std::string strm = streamable_class(t);
    at_indent() << strm << "* " << yvstrmvar(dn().result.c_str()) << " = " << strm << "::_downcast(" << dn().any
                << "->yv_get_streamable());\n\n";
}

void VE_POA_Impl_Interface::output_op_dispatch_local_extract_streamable(AST_Type* t, unsigned long position, const char* name)
{
    const std::string strm = streamable_class(t);
    const std::string var = yvstrmvar(name);
    at_indent() << strm << "* " << var << " = \n";
    at_indent_plus(1) << strm << "::_downcast(\n";
    at_indent_plus(2) << dn().nvlist << "->item(" << position << ")->value()->yv_get_streamable()\n";
    at_indent_plus(1) << ");\n\n";
    at_indent() << "if (" << var << " == 0)\n";
    open_block();
    at_indent() << "throw CORBA::MARSHAL();\n";
    close_block();
    os() << "\n";
}

// The reference that binds a value held by a streamable, by the kind of the
// type behind any typedefs and the passing mode. Type names are those of
// the type as declared, so a typedef's name stands in the text.
void VE_POA_Impl_Interface::output_op_dispatch_local_declare_and_extract_variable(AST_Type* t, const char* name,
                                                                                  AST_Argument::Direction dir, long is_result)
{
    enum Mode { in, inout, out, ret };
    const Mode mode = is_result ? ret : dir == AST_Argument::dir_INOUT ? inout : dir == AST_Argument::dir_OUT ? out : in;
    AST_Type* r = resolved_type(t);
    const std::string n = name;
    const std::string strm = yvstrmvar(name);
    const std::string extract = strm + "->extract();";
    const std::string extract_closed = strm + "->extract());";

    std::ostream& line = at_indent();
    switch (r->node_type()) {
    case AST_Decl::NT_string:
        line << wchar_or_char(r) << "*& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_pre_defined: {
        const AST_PredefinedType::PredefinedType pt = AST_PredefinedType::narrow_from_decl(r)->pt();
        if (pt != AST_PredefinedType::PT_any)
            line << resolver().get_predef_type(pt) << "& " << n << " = " << extract << "\n";
        else if (mode == in)
            line << "const CORBA::Any& " << n << " = *(" << extract_closed << "\n";
        else if (mode == inout)
            line << "CORBA::Any& " << n << " = *" << extract << "\n";
        else
            line << "CORBA::Any*& " << n << " = " << extract << "\n";
        break;
    }
    case AST_Decl::NT_object:
        line << "CORBA::Object_ptr& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_valuebase:
        line << "CORBA::ValueBase*& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_interface:
        line << fully_scoped(t) << "_ptr& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_enum:
        line << fully_scoped(t) << "& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_struct:
    case AST_Decl::NT_union:
        if (mode == in)
            line << "const " << fully_scoped(t) << "& " << n << " = *" << extract << "\n";
        else if (mode == inout)
            line << fully_scoped(t) << "& " << n << " = *" << extract << "\n";
        else if (isFixedLength(r))
            line << fully_scoped(t) << "& " << n << " = *" << extract << "\n";
        else
            line << fully_scoped(t) << "*& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_sequence:
        if (mode == in)
            line << "const " << fully_scoped(t) << "& " << n << " = *" << extract << "\n";
        else if (mode == inout)
            line << fully_scoped(t) << "& " << n << " = *" << extract << "\n";
        else
            line << fully_scoped(t) << "*& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_array:
        if (mode == in)
            line << "YV_ARRAY_IN_ARG_CONST " << fully_scoped(t) << "_slice*& " << n << " = YV_ARRAY_CONST_CAST(YV_ARRAY_IN_ARG_CONST "
                 << fully_scoped(t) << "_slice*&, " << extract_closed << "\n";
        else
            line << fully_scoped(t) << "_slice*& " << n << " = " << extract << "\n";
        break;
    case AST_Decl::NT_fixed:
        line << fully_scoped(t) << "& " << n << " = *YV_REINTERPRET_CAST(" << fully_scoped(t) << "*, &" << extract_closed << "\n";
        break;
    // A value box is a value type: the same pointer binding.
    case AST_Decl::NT_value:
    case AST_Decl::NT_value_box:
        line << fully_scoped(t) << "*& " << n << " = " << extract << "\n";
        break;
    default:
        // A kind without a colocated binding: the line stays empty.
        break;
    }
    os() << "\n\n";
}

void VE_POA_Impl_Interface::output_op_dispatch_local_invoke(AST_Operation* op)
{
    const DispatchNames& v = dn();
    output_status("MAYBE");
    std::ostream& call = at_indent();
    if (!is_void(op->return_type()))
        call << v.result << " = ";
    call << v.intf << "->" << names().local(op) << "(";
    write_list(arguments_of(op), ", ", [this](std::ostream& o, AST_Argument* arg) { o << yvtmpvar(names().local(arg).c_str()); });
    os() << ");\n";
    output_status("YES");
    os() << "\n";
}

void VE_POA_Impl_Interface::output_get_dispatch_local(AST_Attribute* a)
{
    const DispatchNames& v = dn();
    AST_Type* t = a->field_type();
    open_block();
    output_result_streamable(t);
    output_op_dispatch_local_declare_and_extract_variable(t, v.result.c_str(), AST_Argument::dir_IN, 1);
    at_indent() << v.result << " = " << v.intf << "->" << names().local(a) << "();\n";
    at_indent() << v.request << "->set_result(*" << v.any << ");\n";
    at_indent() << v.request << "->yv_respond();\n";
    close_block();
}

void VE_POA_Impl_Interface::output_set_dispatch_local(AST_Attribute* a)
{
    const DispatchNames& v = dn();
    const std::string tmp = yvtmpvar(names().local(a).c_str());
    open_block();
    output_op_dispatch_local_extract_streamable(a->field_type(), 0, tmp.c_str());
    output_op_dispatch_local_declare_and_extract_variable(a->field_type(), tmp.c_str(), AST_Argument::dir_IN, 0);
    output_status("MAYBE");
    os() << "\n";
    at_indent() << v.intf << "->" << names().local(a) << "(" << tmp << ");\n\n";
    output_status("YES");
    os() << "\n";
    at_indent() << v.request << "->yv_respond();\n";
    close_block();
}

// -------------------------------------------------- request-based bodies

void VE_POA_Impl_Interface::output_op_dispatch_remote(AST_Operation* op)
{
    output_remote_open();
    const unsigned long count = calc_num_args(op);
    output_dispatch_remote_nv_array(count);
    unsigned long position = 0;
    for (AST_Argument* arg : arguments_of(op))
        output_dispatch_remote_arg(arg, position++);
    output_dispatch_remote_nvlist(count);
    output_dispatch_remote_result(op->return_type());
    output_op_dispatch_invoke(op);
    output_dispatch_remote_set_result();
}

void VE_POA_Impl_Interface::output_get_dispatch_remote(AST_Attribute* a)
{
    output_remote_open();
    output_dispatch_remote_nvlist(0);
    output_dispatch_remote_result(a->field_type());
    output_get_dispatch_invoke(a);
    output_dispatch_remote_set_result();
}

void VE_POA_Impl_Interface::output_set_dispatch_remote(AST_Attribute* a)
{
    const DispatchNames& v = dn();
    output_remote_open();
    output_dispatch_remote_nv_array(1);
    {
        // The written value travels as an in argument named like the
        // colocated body's variable; the node lives for this step only.
        AST_Argument value(AST_Argument::dir_IN, a->field_type(), UTL_IdList(Identifier(yvtmpvar(names().local(a).c_str()))), nullptr);
        output_dispatch_remote_arg(&value, 0);
    }
    output_dispatch_remote_nvlist(1);
    at_indent() << "CORBA::Any " << v.retn_any << "(CORBA::_tc_void, 0);\n\n";
    output_set_dispatch_invoke(a);
    output_dispatch_remote_set_result();
}

void VE_POA_Impl_Interface::output_remote_open()
{
    at_indent() << "else\n";
    open_block();
    at_indent() << "CORBA::YV_ORB_ptr " << dn().target_orb << " = " << dn().request << "->yv_get_orb();\n\n";
}

void VE_POA_Impl_Interface::output_dispatch_remote_nv_array(unsigned long count)
{
    if (count != 0)
        at_indent() << "CORBA::NamedValue* " << dn().named_values << "[" << count << "];\n";
}

void VE_POA_Impl_Interface::output_dispatch_remote_arg(AST_Argument* arg, unsigned long position)
{
    const std::string n = names().local(arg);
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    {
        VIS_Client_DeclareArgs_Factory* factory = VIS_Client_DeclareArgs_Factory::find_factory(gen->visitorFF());
        // The factory hands the visitor over; it declares this one variable.
        std::unique_ptr<VIS_Client_DeclareArgs> declare(factory->create_VIS_Client_DeclareArgs(os(), indent().get_indent(), root_scope(), generator(), arg));
        arg->field_type()->accept(declare.get());
    }
    {
        const std::string strm = "_yvvar_" + n;
        const std::string addr = "&" + n;
        VIS_Client_DeclDispStreamable_Factory* factory = VIS_Client_DeclDispStreamable_Factory::find_factory(gen->visitorFF());
        // The factory hands the visitor over; it declares this one streamable.
        std::unique_ptr<VIS_Client_DeclDispStreamable> declare(factory->create_VIS_Client_DeclDispStreamable(
            os(), indent().get_indent(), root_scope(), generator(), strm.c_str(), n.c_str(), addr.c_str(), dn().target_orb.c_str(),
            direction_usage(arg->direction()), nullptr));
        arg->field_type()->accept(declare.get());
    }
    at_indent() << "CORBA::Any _yvany_" << n << "(&_yvvar_" << n << ", YV_SHALLOW_COPY);\n";
    at_indent() << "YV_Cxx_NV::StackBasedNamedValue _yvnv_" << n << "(_yvany_" << n << ", " << direction_flag(arg->direction()) << ");\n";
    at_indent() << dn().named_values << "[" << position << "] = &_yvnv_" << n << ";\n\n";
}

void VE_POA_Impl_Interface::output_dispatch_remote_nvlist(unsigned long count)
{
    const DispatchNames& v = dn();
    at_indent() << "YV_Cxx_NV::StackBasedNVList " << v.stack_nvlist << "(" << count << ", " << (count != 0 ? v.named_values : "0") << ");\n";
    at_indent() << v.nvlist << " = &" << v.stack_nvlist << ";\n\n";
    at_indent() << v.request << "->arguments(" << v.nvlist << ");\n\n";
}

void VE_POA_Impl_Interface::output_dispatch_remote_result(AST_Type* t)
{
    const DispatchNames& v = dn();
    if (is_void(t)) {
        at_indent() << "CORBA::Any " << v.retn_any << "(CORBA::_tc_void, 0);\n\n";
        return;
    }
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    {
        VIS_HH_ABC_OpReturn_Factory* factory = VIS_HH_ABC_OpReturn_Factory::find_factory(gen->visitorFF());
        // The factory hands the visitor over; it writes this one type.
        std::unique_ptr<VIS_HH_ABC_OpReturn> return_type(factory->create_VIS_HH_ABC_OpReturn(os(), indent().get_indent() + 1, root_scope(), generator()));
        at_indent();
        t->accept(return_type.get());
        os() << " " << v.result << ";\n";
    }
    {
        const std::string addr = "&" + v.result;
        VIS_Client_DeclDispStreamable_Factory* factory = VIS_Client_DeclDispStreamable_Factory::find_factory(gen->visitorFF());
        // The factory hands the visitor over; it declares this one streamable.
        std::unique_ptr<VIS_Client_DeclDispStreamable> declare(factory->create_VIS_Client_DeclDispStreamable(
            os(), indent().get_indent(), root_scope(), generator(), v.retn.c_str(), v.result.c_str(), addr.c_str(), v.target_orb.c_str(),
            result_usage, nullptr));
        t->accept(declare.get());
    }
    at_indent() << "CORBA::Any " << v.retn_any << "(&" << v.retn << ", YV_SHALLOW_COPY);\n\n";
}

void VE_POA_Impl_Interface::output_op_dispatch_invoke(AST_Operation* op)
{
    const DispatchNames& v = dn();
    output_status("MAYBE");
    std::ostream& call = at_indent();
    if (!is_void(op->return_type()))
        call << v.result << " = ";
    call << v.intf << "->" << names().local(op) << "(";
    write_list(arguments_of(op), ", ", [this](std::ostream& o, AST_Argument* arg) { o << names().local(arg); });
    os() << ");\n";
    output_status("YES");
    os() << "\n";
}

void VE_POA_Impl_Interface::output_get_dispatch_invoke(AST_Attribute* a)
{
    const DispatchNames& v = dn();
    output_status("MAYBE");
    at_indent() << v.result << " = " << v.intf << "->" << names().local(a) << "();\n";
    output_status("YES");
    os() << "\n";
}

void VE_POA_Impl_Interface::output_set_dispatch_invoke(AST_Attribute* a)
{
    const DispatchNames& v = dn();
    output_status("MAYBE");
    at_indent() << v.intf << "->" << names().local(a) << "(" << yvtmpvar(names().local(a).c_str()) << ");\n";
    output_status("YES");
    os() << "\n";
}

void VE_POA_Impl_Interface::output_dispatch_remote_set_result()
{
    const DispatchNames& v = dn();
    at_indent() << v.request << "->set_result(" << v.retn_any << ");\n";
    at_indent() << v.request << "->yv_respond();\n";
    close_block();
}

// ------------------------------------------------------- the lookup table

void VE_POA_Impl_Interface::outputEmptyDispatch(AST_Interface* i)
{
    os() << "PortableServer::ServantBase::_YV_DispatcherPtr\n";
    os() << names().scoped(i) << "::_lookup_dispatcher(\n";
    at_indent_plus(1) << "const char* operation\n";
    os() << ")\n";
    os() << "{\n";
    at_indent_plus(1) << "return 0;\n";
    os() << "}\n\n";
}

void VE_POA_Impl_Interface::outputHashDispatch(AST_Interface* i)
{
    os() << "PortableServer::ServantBase::_YV_DispatcherPtr\n";
    os() << names().scoped(i) << "::_lookup_dispatcher(\n";
    at_indent_plus(1) << "const char* operation\n";
    os() << ")\n";
    os() << "{\n";
    indent().increment();
    const int slots = output_static_hashtable(i);
    os() << "\n";
    at_indent() << "PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =\n";
    indent().increment();
    at_indent() << "YV_Cxx_StaticDispatchHashTable::lookup(\n";
    indent().increment();
    at_indent() << "operation,\n";
    at_indent() << "_raw_table,\n";
    at_indent() << slots << "\n";
    indent().decrement();
    at_indent() << ");\n";
    indent().decrement();
    at_indent() << "return dispatcher;\n";
    indent().decrement();
    os() << "}\n\n";
}

int VE_POA_Impl_Interface::output_static_hashtable(AST_Interface* i)
{
    long counter = 3;  // the three standard entries
    std::vector<AST_Interface*> all;
    find_all_interfaces(i, all, counter);

    unsigned long bits = table_bits(i, counter);
    std::unique_ptr<IDL_OpDict> dict;
    try {
        dict = std::make_unique<IDL_OpDict>(YV_hash_string, bits);
    } catch (const std::bad_alloc&) {
        idl_msg_header(i->line(), i->file_name());
        std::cerr << "POA Error. Dispatch table size 2^" << bits << " cannot be allocated; using the automatic size." << std::endl;
        bits = IDL_OpDict::auto_bits(static_cast<unsigned long>(counter));
        dict = std::make_unique<IDL_OpDict>(YV_hash_string, bits);
    }
    const int slots = static_cast<int>(dict->slot_count());

    dict->Insert("_interface", "PortableServer::ServantBase::_get_interface_dispatch");
    dict->Insert("_is_a", "PortableServer::ServantBase::_is_a_dispatch");
    dict->Insert("_non_existent", "PortableServer::ServantBase::_non_existent_dispatch");
    for (AST_Interface* each : all)
        insert_hash_entries(each, *dict);

    for (int s = 0; s < slots; ++s) {
        if (dict->entries()[s].used)
            output_entry(&dict->entries()[s], s, 0);
    }

    // The slot array, six elements to a line.
    os() << "\n";
    at_indent() << "static YV_Cxx_HashEntry *_raw_table[] = \n";
    open_block();
    at_indent();
    for (int s = 0; s < slots; ++s) {
        if (dict->entries()[s].used)
            os() << "&_entry_" << s << "_0";
        else
            os() << "0";
        if (s + 1 < slots) {
            os() << ", ";
            if (s % 6 == 5) {
                os() << "\n";
                at_indent();
            }
        }
    }
    os() << "\n";
    close_block("};");
    os() << "\n";
    return slots;
}

unsigned long VE_POA_Impl_Interface::table_bits(AST_Interface* i, long counter) const
{
    const unsigned long automatic = IDL_OpDict::auto_bits(static_cast<unsigned long>(counter < 0 ? 0 : counter));
    const int requested = GEN_POACxx::narrow_from_gen(generator())->hash_max();
    // -1 is the value of a -p that was not given.
    if (requested == -1)
        return automatic;
    if (requested < 0 || static_cast<unsigned long>(requested) > IDL_OpDict::max_bits) {
        idl_msg_header(i->line(), i->file_name());
        std::cerr << "POA Error. Dispatch table size 2^" << requested << " cannot be built; using the automatic size." << std::endl;
        return automatic;
    }
    return static_cast<unsigned long>(requested);
}

void VE_POA_Impl_Interface::insert_hash_entries(AST_Interface* i, IDL_OpDict& dict)
{
    // Insert's answer is not needed: when a key is already held (a base
    // reached along two paths, a name equal to a standard entry), the entry
    // inserted first stays.
    for (AST_Decl* d : own_decls(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
            dict.Insert(handler_operation_key(op).c_str(), dispatch_function_name(op, "").c_str());
            continue;
        }
        AST_Attribute* a = AST_Attribute::narrow_from_decl(d);
        const std::string id = a->local_name()->str();
        dict.Insert(("_get_" + id).c_str(), dispatch_function_name(a, "_get_").c_str());
        if (!a->readonly())
            dict.Insert(("_set_" + id).c_str(), dispatch_function_name(a, "_set_").c_str());
    }
}

std::string VE_POA_Impl_Interface::handler_operation_key(AST_Operation* op)
{
    const std::string id = op->local_name()->str();
    if (!ami_handler_on || !ami_target)
        return id;
    for (AST_Decl* d : own_decls(ami_target, {AST_Decl::NT_attr})) {
        AST_Attribute* a = AST_Attribute::narrow_from_decl(d);
        const std::string attr = a->local_name()->str();
        bool reply = id == "get_" + attr + "_complete" || id == "get_" + attr + "_excep";
        if (!a->readonly())
            reply = reply || id == "set_" + attr + "_complete" || id == "set_" + attr + "_excep";
        if (reply)
            return "_" + id;
    }
    return id;
}

void VE_POA_Impl_Interface::output_entry(const IDL_OpDict::HashEntry* e, int slot, int depth)
{
    if (e->next)
        output_entry(e->next.get(), slot, depth + 1);
    at_indent() << "static YV_Cxx_HashEntry _entry_" << slot << "_" << depth << " = \n";
    open_block();
    at_indent() << "\"" << e->key << "\",\n";
    at_indent() << e->value << ",\n";
    if (e->next)
        at_indent() << "&_entry_" << slot << "_" << depth + 1 << "\n";
    else
        at_indent() << "0\n";
    close_block("};");
}

// ---------------------------------------------------------------- helpers

std::ostream& VE_POA_Impl_Interface::at_indent_plus(int extra) const
{
    return os() << UTL_Indent(indent().get_indent() + extra);
}

void VE_POA_Impl_Interface::open_block() const
{
    at_indent() << "{\n";
    indent().increment();
}

void VE_POA_Impl_Interface::close_block(const char* closing) const
{
    indent().decrement();
    at_indent() << closing << "\n";
}

void VE_POA_Impl_Interface::output_handler(const std::string& caught, const char* action) const
{
    at_indent() << "catch (" << caught << ")\n";
    open_block();
    at_indent() << action << "\n";
    close_block();
}

void VE_POA_Impl_Interface::output_status(const char* word) const
{
    at_indent() << dn().status << " = CORBA::COMPLETED_" << word << ";\n";
}

POA_SkeletonNames VE_POA_Impl_Interface::names() const
{
    return POA_SkeletonNames(resolver());
}

std::string VE_POA_Impl_Interface::dispatch_function_name(AST_Decl* d, const char* accessor) const
{
    const POA_SkeletonNames n = names();
    return n.scoped(declaring_interface(d)) + "::" + accessor + n.local(d) + "_yvgen_dispatch";
}

std::string VE_POA_Impl_Interface::streamable_class(AST_Type* t)
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    VIS_Client_DeclareAsst_Factory* factory = VIS_Client_DeclareAsst_Factory::find_factory(GEN_POACxx::narrow_from_gen(generator())->visitorFF());
    // The factory hands the visitor over; it names this one class.
    std::unique_ptr<VIS_Client_DeclareAsst> declare(factory->create_VIS_Client_DeclareAsst(text, indent().get_indent(), root_scope(), generator(), streamable_class_usage));
    t->accept(declare.get());
    return text_buf.str();
}

std::string VE_POA_Impl_Interface::fully_scoped(AST_Decl* d) const
{
    return names().client(d);
}

UTL_Scope* VE_POA_Impl_Interface::root_scope() const
{
    return generator()->global_data()->root();
}
