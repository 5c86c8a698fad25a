// VE_POA_Impl_Interface: the request-based bodies of the dispatch
// functions, where the arguments are read through a list of named values
// on the stack.
#include "VE_POA_Impl_Interface.h"

#include "AST_Attribute.h"
#include "AST_Operation.h"
#include "CxxNaming.h"
#include "GEN_POACxx.h"
#include "POA_DispatchNames.h"
#include "POA_SkeletonNames.h"
#include "VIS_Client_DeclDispStreamable.h"
#include "CxxVisitorFactories.h"
#include "VIS_Client_DeclareArgs.h"
#include "VIS_HH_ABC_OpReturn.h"

#include <memory>

namespace {

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

} // namespace

void VE_POA_Impl_Interface::output_op_dispatch_remote(AST_Operation* op)
{
    output_remote_open();
    const unsigned long count = calc_num_args(op);
    output_dispatch_remote_nv_array(count);
    unsigned long position = 0;
    for (AST_Argument* arg : arguments(op))
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
    output_remote_open();
    output_dispatch_remote_nv_array(1);
    {
        // The written value travels as an in argument named like the
        // colocated body's variable; the node lives for this step only.
        AST_Argument value(AST_Argument::dir_IN, a->field_type(), UTL_IdList(Identifier(yvtmpvar(names().local(a).c_str()))), nullptr);
        output_dispatch_remote_arg(&value, 0);
    }
    output_dispatch_remote_nvlist(1);
    printer().print("CORBA::Any $retn_any$(CORBA::_tc_void, 0);\n\n", {{"retn_any", POA_DispatchNames::get().retn_any}});
    output_set_dispatch_invoke(a);
    output_dispatch_remote_set_result();
}

void VE_POA_Impl_Interface::output_remote_open()
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    p.print("else\n{\n");
    p.indent();
    p.print("CORBA::YV_ORB_ptr $orb$ = $request$->yv_get_orb();\n\n", {{"orb", v.target_orb}, {"request", v.request}});
}

void VE_POA_Impl_Interface::output_dispatch_remote_nv_array(unsigned long count)
{
    if (count != 0)
        printer().print("CORBA::NamedValue* $values$[$count$];\n",
                        {{"values", POA_DispatchNames::get().named_values},
                         {"count", CxxPrinter::Num(static_cast<long long>(count))}});
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
            os(), indent().get_indent(), root_scope(), generator(), strm.c_str(), n.c_str(), addr.c_str(),
            POA_DispatchNames::get().target_orb.c_str(), direction_usage(arg->direction()), nullptr));
        arg->field_type()->accept(declare.get());
    }
    printer().print("CORBA::Any _yvany_$n$(&_yvvar_$n$, YV_SHALLOW_COPY);\n"
                    "YV_Cxx_NV::StackBasedNamedValue _yvnv_$n$(_yvany_$n$, $flag$);\n"
                    "$values$[$position$] = &_yvnv_$n$;\n\n",
                    {{"n", n},
                     {"flag", direction_flag(arg->direction())},
                     {"values", POA_DispatchNames::get().named_values},
                     {"position", CxxPrinter::Num(static_cast<long long>(position))}});
}

void VE_POA_Impl_Interface::output_dispatch_remote_nvlist(unsigned long count)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    printer().print("YV_Cxx_NV::StackBasedNVList $stack$($count$, $values$);\n"
                    "$nvlist$ = &$stack$;\n\n"
                    "$request$->arguments($nvlist$);\n\n",
                    {{"stack", v.stack_nvlist},
                     {"count", CxxPrinter::Num(static_cast<long long>(count))},
                     {"values", count != 0 ? std::string_view(v.named_values) : std::string_view("0")},
                     {"nvlist", v.nvlist},
                     {"request", v.request}});
}

void VE_POA_Impl_Interface::output_dispatch_remote_result(AST_Type* t)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    if (is_void(t)) {
        p.print("CORBA::Any $retn_any$(CORBA::_tc_void, 0);\n\n", {{"retn_any", v.retn_any}});
        return;
    }
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    {
        VIS_HH_ABC_OpReturn_Factory* factory = VIS_HH_ABC_OpReturn_Factory::find_factory(gen->visitorFF());
        // The factory hands the visitor over; it writes this one type.
        std::unique_ptr<VIS_HH_ABC_OpReturn> return_type(factory->create_VIS_HH_ABC_OpReturn(os(), indent().get_indent() + 1, root_scope(), generator()));
        p.indentation();
        t->accept(return_type.get());
        p.print(" $result$;\n", {{"result", v.result}});
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
    p.print("CORBA::Any $retn_any$(&$retn$, YV_SHALLOW_COPY);\n\n", {{"retn_any", v.retn_any}, {"retn", v.retn}});
}

void VE_POA_Impl_Interface::output_op_dispatch_invoke(AST_Operation* op)
{
    output_operation_call(op, false);
}

void VE_POA_Impl_Interface::output_get_dispatch_invoke(AST_Attribute* a)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    v.completion_around(p, [&] {
        p.print("$result$ = $intf$->$attr$();\n", {{"result", v.result}, {"intf", v.intf}, {"attr", names().local(a)}});
    });
}

void VE_POA_Impl_Interface::output_set_dispatch_invoke(AST_Attribute* a)
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    const std::string& attr = names().local(a);
    CxxPrinter p = printer();
    v.completion_around(p, [&] {
        p.print("$intf$->$attr$($tmp$);\n", {{"intf", v.intf}, {"attr", attr}, {"tmp", yvtmpvar(attr.c_str())}});
    });
}

// Closes the block that output_remote_open opened.
void VE_POA_Impl_Interface::output_dispatch_remote_set_result()
{
    const POA_DispatchNames& v = POA_DispatchNames::get();
    CxxPrinter p = printer();
    p.print("$request$->set_result($retn_any$);\n"
            "$request$->yv_respond();\n",
            {{"request", v.request}, {"retn_any", v.retn_any}});
    p.outdent();
    p.print("}\n");
}
