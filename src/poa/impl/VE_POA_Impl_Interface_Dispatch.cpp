// VE_POA_Impl_Interface: the dispatch functions' frame and their colocated
// bodies, where the arguments are bound to the caller's streamables.
#include "VE_POA_Impl_Interface.h"

#include "AST_Attribute.h"
#include "AST_Exception.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Typedef.h"
#include "CxxNaming.h"
#include "CxxTypeQueries.h"
#include "GEN_POACxx.h"
#include "NameResolver.h"
#include "POA_DispatchNames.h"
#include "POA_SkeletonNames.h"
#include "UTL_ExceptlistActiveIterator.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

namespace {

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

} // namespace

// ------------------------------------------------------ the dispatch frame

void VE_POA_Impl_Interface::output_methods(AST_Interface* i)
{
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(i, {AST_Decl::NT_op, AST_Decl::NT_attr})) {
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
    printer().raw("void\n$name$(\n", {{"name", dispatch_function_name(d, accessor)}});
}

// The prologue opens the function body (and the try block of raises
// enforcement) and leaves the level raised for the bodies; the epilogue
// closes both. ")" is fixed at the function's level, "{" in the first
// column.
void VE_POA_Impl_Interface::output_dispatch_prolog(AST_Interface* i)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    {
        auto params = p.deeper();
        p.print("PortableServer::ServantBase* $servant$,\n"
                "CORBA::YV_ServerRequest_ptr $request$,\n"
                "CORBA::CompletionStatus& $status$\n",
                {{"servant", v.servant}, {"request", v.request}, {"status", v.status}});
    }
    p.print(")\n");
    p.raw("{\n");
    p.indent();
    if (GEN_POACxx::narrow_from_gen(generator())->enforce_raises_on()) {
        p.print("try\n{\n");
        p.indent();
    }
    p.print("$skeleton$* $intf$ = $skeleton$::_narrow($servant$);\n\n"
            "CORBA::NVList_ptr $nvlist$;\n"
            "CORBA::Any *$any$;\n\n"
            "if ($request$->yv_setup($nvlist$, $any$))\n",
            {{"skeleton", skeleton_in_itself(i)},
             {"intf", v.intf},
             {"servant", v.servant},
             {"nvlist", v.nvlist},
             {"any", v.any},
             {"request", v.request}});
}

void VE_POA_Impl_Interface::output_dispatch_epilog(AST_Operation* op)
{
    CxxPrinter p = printer();
    auto handler = [&p](std::string_view caught, std::string_view action) {
        auto b = p.block("catch ($caught$)\n{\n", "}\n", {{"caught", caught}});
        p.print("$action$\n", {{"action", action}});
    };
    if (GEN_POACxx::narrow_from_gen(generator())->enforce_raises_on()) {
        p.outdent();
        p.print("}\n");
        handler("CORBA::SystemException &", "throw;");
        if (op) {
            for (UTL_ExceptlistActiveIterator it(op->exceptions()); !it.is_done(); it.next())
                handler(fully_scoped(it.item()) + "&", "throw;");
        }
        handler("...", "throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);");
    }
    p.outdent();
    p.print("}\n\n");
}

unsigned long VE_POA_Impl_Interface::calc_num_args(AST_Operation* op)
{
    return static_cast<unsigned long>(arguments(op).size());
}

long VE_POA_Impl_Interface::is_void(AST_Type* t)
{
    if (t->node_type() != AST_Decl::NT_pre_defined)
        return 0;
    return AST_PredefinedType::narrow_from_decl(t)->pt() == AST_PredefinedType::PT_void ? 1 : 0;
}

void VE_POA_Impl_Interface::output_operation_call(AST_Operation* op, bool temporaries)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    v.completion_around(p, [&] {
        if (!is_void(op->return_type()))
            p.print("$result$ = ", {{"result", v.result}});
        p.print("$intf$->$op$(", {{"intf", v.intf}, {"op", names().local(op)}});
        p.list(arguments(op), ", ", [&](AST_Argument* arg) {
            const std::string& name = names().local(arg);
            p.print("$arg$", {{"arg", temporaries ? yvtmpvar(name.c_str()) : name}});
        });
        p.print(");\n");
    });
}

// -------------------------------------------------------- colocated bodies

void VE_POA_Impl_Interface::output_op_dispatch_local(AST_Operation* op)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    auto body = p.block();
    output_op_dispatch_local_extract(op);
    output_op_dispatch_local_invoke(op);
    if (!is_void(op->return_type()))
        p.print("$request$->set_result(*$any$);\n", {{"request", v.request}, {"any", v.any}});
    p.print("$request$->yv_respond();\n", {{"request", v.request}});
}

void VE_POA_Impl_Interface::output_op_dispatch_local_extract(AST_Operation* op)
{
    AST_Type* rt = op->return_type();
    if (!is_void(rt)) {
        output_result_streamable(rt);
        output_op_dispatch_local_declare_and_extract_variable(rt, POA_DispatchNames::get().result.c_str(),
                                                              AST_Argument::dir_IN, 1);
    }
    unsigned long position = 0;
    for (AST_Argument* arg : arguments(op)) {
        const std::string tmp = yvtmpvar(names().local(arg).c_str());
        output_op_dispatch_local_extract_streamable(arg->field_type(), position++, tmp.c_str());
        output_op_dispatch_local_declare_and_extract_variable(arg->field_type(), tmp.c_str(), arg->direction(), 0);
    }
}

void VE_POA_Impl_Interface::output_result_streamable(AST_Type* t)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    const std::string& strm = streamable_class(t);
    printer().print("$class$* $var$ = $class$::_downcast($any$->yv_get_streamable());\n\n",
                    {{"class", strm}, {"var", yvstrmvar(v.result.c_str())}, {"any", v.any}});
}

// The blank after "=" that ends the first line is fixed.
void VE_POA_Impl_Interface::output_op_dispatch_local_extract_streamable(AST_Type* t, unsigned long position, const char* name)
{
    const std::string& strm = streamable_class(t);
    const std::string var = yvstrmvar(name);
    const CxxPrinter::Num at(static_cast<long long>(position));
    const CxxPrinter::Vars vars = {
        {"class", strm}, {"var", var}, {"nvlist", POA_DispatchNames::get().nvlist}, {"position", at}};
    CxxPrinter p = printer();
    p.print("$class$* $var$ = \n", vars);
    {
        auto call = p.deeper();
        p.print("$class$::_downcast(\n", vars);
        {
            auto argument = p.deeper();
            p.print("$nvlist$->item($position$)->value()->yv_get_streamable()\n", vars);
        }
        p.print(");\n\n");
    }
    {
        auto none = p.block("if ($var$ == 0)\n{\n", "}\n", vars);
        p.print("throw CORBA::MARSHAL();\n");
    }
    p.print("\n");
}

// The reference that binds a value held by a streamable, by the kind of the
// type behind any typedefs and the passing mode. Type names are those of
// the type as declared, so a typedef's name stands in the text. A kind
// without a colocated binding leaves a line holding only the indentation
// (fixed).
void VE_POA_Impl_Interface::output_op_dispatch_local_declare_and_extract_variable(AST_Type* t, const char* name,
                                                                                  AST_Argument::Direction dir, long is_result)
{
    enum Mode { in, inout, out, ret };
    const Mode mode = is_result ? ret : dir == AST_Argument::dir_INOUT ? inout : dir == AST_Argument::dir_OUT ? out : in;
    AST_Type* r = resolved_type(t);

    // $type$ is the type's text, $x$ the extraction.
    CxxPrinter::Text shape;
    std::string type;
    switch (r->node_type()) {
    case AST_Decl::NT_string:
        shape = "$type$*& $name$ = $x$;\n";
        type = wchar_or_char(r);
        break;
    case AST_Decl::NT_pre_defined: {
        const AST_PredefinedType::PredefinedType pt = AST_PredefinedType::narrow_from_decl(r)->pt();
        if (pt != AST_PredefinedType::PT_any) {
            shape = "$type$& $name$ = $x$;\n";
            type = resolver().get_predef_type(pt);
        } else if (mode == in) {
            shape = "const CORBA::Any& $name$ = *($x$);\n";
        } else if (mode == inout) {
            shape = "CORBA::Any& $name$ = *$x$;\n";
        } else {
            shape = "CORBA::Any*& $name$ = $x$;\n";
        }
        break;
    }
    case AST_Decl::NT_object:
        shape = "CORBA::Object_ptr& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_valuebase:
        shape = "CORBA::ValueBase*& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_interface:
        shape = "$type$_ptr& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_enum:
        shape = "$type$& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_struct:
    case AST_Decl::NT_union:
        if (mode == in)
            shape = "const $type$& $name$ = *$x$;\n";
        else if (mode == inout || isFixedLength(r))
            shape = "$type$& $name$ = *$x$;\n";
        else
            shape = "$type$*& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_sequence:
        if (mode == in)
            shape = "const $type$& $name$ = *$x$;\n";
        else if (mode == inout)
            shape = "$type$& $name$ = *$x$;\n";
        else
            shape = "$type$*& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_array:
        if (mode == in)
            shape = "YV_ARRAY_IN_ARG_CONST $type$_slice*& $name$ = "
                    "YV_ARRAY_CONST_CAST(YV_ARRAY_IN_ARG_CONST $type$_slice*&, $x$);\n";
        else
            shape = "$type$_slice*& $name$ = $x$;\n";
        break;
    case AST_Decl::NT_fixed:
        shape = "$type$& $name$ = *YV_REINTERPRET_CAST($type$*, &$x$);\n";
        break;
    // A value box is a value type: the same pointer binding.
    case AST_Decl::NT_value:
    case AST_Decl::NT_value_box:
        shape = "$type$*& $name$ = $x$;\n";
        break;
    default:
        break;
    }
    if (!shape.empty() && type.empty() && shape.view().find("$type$") != std::string_view::npos)
        type = fully_scoped(t);

    const std::string extract = yvstrmvar(name) + "->extract()";
    CxxPrinter p = printer();
    p.indentation();
    if (!shape.empty())
        p.print(shape, {{"type", type}, {"name", name}, {"x", extract}});
    p.print("\n\n");
}

void VE_POA_Impl_Interface::output_op_dispatch_local_invoke(AST_Operation* op)
{
    output_operation_call(op, true);
}

void VE_POA_Impl_Interface::output_get_dispatch_local(AST_Attribute* a)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    AST_Type* t = a->field_type();
    CxxPrinter p = printer();
    auto body = p.block();
    output_result_streamable(t);
    output_op_dispatch_local_declare_and_extract_variable(t, v.result.c_str(), AST_Argument::dir_IN, 1);
    p.print("$result$ = $intf$->$attr$();\n"
            "$request$->set_result(*$any$);\n"
            "$request$->yv_respond();\n",
            {{"result", v.result}, {"intf", v.intf}, {"attr", names().local(a)}, {"request", v.request}, {"any", v.any}});
}

void VE_POA_Impl_Interface::output_set_dispatch_local(AST_Attribute* a)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    const std::string tmp = yvtmpvar(names().local(a).c_str());
    CxxPrinter p = printer();
    auto body = p.block();
    output_op_dispatch_local_extract_streamable(a->field_type(), 0, tmp.c_str());
    output_op_dispatch_local_declare_and_extract_variable(a->field_type(), tmp.c_str(), AST_Argument::dir_IN, 0);
    v.completion_around(p, [&] {
        p.print("\n$intf$->$attr$($tmp$);\n\n", {{"intf", v.intf}, {"attr", names().local(a)}, {"tmp", tmp}});
    });
    p.print("$request$->yv_respond();\n", {{"request", v.request}});
}
