#include "VE_CPP_MainStartPoint_Interface.h"

#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "CxxClientText.h"
#include "CxxRuntimeNames.h"
#include "CxxLiteral.h"
#include "CxxMemberDeclaration.h"
#include "CxxNaming.h"
#include "CxxTypeQueries.h"
#include "GEN_CPlusPlus.h"
#include "VE_Client_Interface.h"
#include "VE_HH_MainStartPoint_Interface.h"

#include <algorithm>
#include <memory>
#include <ostream>

namespace {

const char* const result_var = "_yvl_result";
const char* const args_var = "_yvl_args";

using Params = std::vector<std::pair<AST_Type*, std::pair<CxxTypeMapping::Mode, std::string>>>;

bool is_void(AST_Type* t) { return !t || CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_void; }

// Results held by value in the proxy (the others arrive as pointers the
// caller takes over).
bool result_by_value(AST_Type* t)
{
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_enum:
    case CxxTypeMapping::K_fixed: return true;
    case CxxTypeMapping::K_struct:
    case CxxTypeMapping::K_union: return isFixedLength(t);
    default: return false;
    }
}

const char* direction_call(CxxTypeMapping::Mode m)
{
    return m == CxxTypeMapping::M_out ? "out" : m == CxxTypeMapping::M_inout ? "inout" : "in";
}

} // namespace

std::string VE_CPP_MainStartPoint_Interface::binding(AST_Type* t, CxxTypeMapping::Mode m, const std::string& param)
{
    const std::string borrowed = "&" + param + ", YV_Cxx::usage_borrow";
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string:
    case CxxTypeMapping::K_wstring: return m == CxxTypeMapping::M_inout ? borrowed : "&" + param;
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_principal:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
    case CxxTypeMapping::K_value:
    case CxxTypeMapping::K_valuebase: return m == CxxTypeMapping::M_out ? "&" + param : borrowed;
    case CxxTypeMapping::K_array: return m == CxxTypeMapping::M_out && !isFixedLength(t) ? "&" + param : param;
    default: return "&" + param;
    }
}

std::string VE_CPP_MainStartPoint_Interface::request_name(AST_Operation* op, AST_Interface* target)
{
    const std::string name = op->local_name()->str();
    if (!target)
        return name;
    for (const auto& d : target->decls()) {
        AST_Attribute* a = AST_Attribute::narrow_from_decl(d.get());
        if (!a)
            continue;
        const std::string attr = a->local_name()->str();
        if (name == "get_" + attr + "_complete" || name == "get_" + attr + "_excep")
            return "_" + name;
        if (!a->readonly() && (name == "set_" + attr + "_complete" || name == "set_" + attr + "_excep"))
            return "_" + name;
    }
    return name;
}

void VE_CPP_MainStartPoint_Interface::pair_handlers(AST_Interface* h, AST_Interface* i, HandlerTargets& targets)
{
    targets[h] = i;
    const std::size_t n = std::min(h->inherits().size(), i->inherits().size());
    for (std::size_t k = 0; k < n; ++k)
        pair_handlers(h->inherits()[k], i->inherits()[k], targets);
}

long VE_CPP_MainStartPoint_Interface::visit(AST_Decl* d)
{
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (!CxxRuntimeNames::provided(i, resolver()))
        output_interface(i, HandlerTargets());
    GEN_CPlusPlus* gen = CxxClientText(visitor()).generator();
    if (gen && gen->ami_callbacks_on() && !i->is_local()) {
        std::unique_ptr<AST_Interface> handler(VE_HH_MainStartPoint_Interface(visitor()).create_full_ami_handler(i));
        HandlerTargets targets;
        pair_handlers(handler.get(), i, targets);
        output_interface(handler.get(), targets);
    }
    return 1;
}

void VE_CPP_MainStartPoint_Interface::output_interface(AST_Interface* i, const HandlerTargets& targets)
{
    output_type_id(i);
    output_typecode(i);
    os() << "\n";
    output_narrow(i);
    for (const auto& member : i->decls()) {
        AST_Decl* d = member.get();
        if (d->node_type() != AST_Decl::NT_op && d->node_type() != AST_Decl::NT_attr && d->in_main_file())
            d->accept(visitor());
    }
    if (!i->is_local())
        output_proxy(i, targets);
}

void VE_CPP_MainStartPoint_Interface::output_narrow(AST_Interface* i)
{
    CxxClientText text(visitor());
    const std::string full = text.full(i);
    CxxMemberDeclaration head(full + "_ptr", full + "::_narrow");
    head.add_parameter("CORBA::Object_ptr", "_yvp_obj");
    head.write(os(), indent(), nullptr, nullptr);
    os() << "\n";
    at_indent() << "{\n";
    indent().increment();
    if (i->is_local())
        at_indent() << "return _duplicate(dynamic_cast<" << full << "_ptr>(_yvp_obj));\n";
    else
        at_indent() << "return YV_Cxx::narrow_reference<" << full << ", " << text.mapping().scope_prefix(i)
                    << "YV_Gen_DynamicProxy_" << text.local(i) << ">(_yvp_obj);\n";
    indent().decrement();
    at_indent() << "}\n\n";
}

void VE_CPP_MainStartPoint_Interface::output_proxy(AST_Interface* i, const HandlerTargets& targets)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    const std::string proxy = map.scope_prefix(i) + "YV_Gen_DynamicProxy_" + text.local(i) + "::";
    std::vector<AST_Interface*> all;
    long keys = 0;
    VE_Client_Interface(visitor()).find_all_interfaces(i, all, keys);
    for (AST_Interface* x : all) {
        auto target = targets.find(x);
        AST_Interface* handler_target = target == targets.end() ? nullptr : target->second;
        for (const auto& member : x->decls()) {
            if (AST_Operation* op = AST_Operation::narrow_from_decl(member.get())) {
                Params params;
                for (const auto& a : op->decls())
                    if (AST_Argument* arg = AST_Argument::narrow_from_decl(a.get()))
                        params.push_back({arg->field_type(), {CxxTypeMapping::mode_of(arg->direction()), text.local(arg)}});
                output_proxy_member(map.param(op->return_type(), CxxTypeMapping::M_return), op->return_type(),
                                    proxy + text.local(op), params, request_name(op, handler_target),
                                    op_has_natives(op));
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(member.get())) {
                const std::string name = a->local_name()->str();
                AST_Type* t = a->field_type();
                output_proxy_member(map.param(t, CxxTypeMapping::M_return), t, proxy + text.local(a), Params(),
                                    "_get_" + name, attr_has_natives(a));
                if (!a->readonly())
                    output_proxy_member("void", nullptr, proxy + text.local(a),
                                        Params{{t, {CxxTypeMapping::M_in, "_yvvar_" + text.local(a)}}},
                                        "_set_" + name, attr_has_natives(a));
            }
        }
    }
}

void VE_CPP_MainStartPoint_Interface::output_proxy_member(const std::string& result_type,
                                                          AST_Type* result, const std::string& name,
                                                          const Params& params, const std::string& request,
                                                          bool has_natives)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    CxxMemberDeclaration head(result_type, name);
    for (const auto& p : params)
        head.add_parameter(map.param(p.first, p.second.first), p.second.second);
    head.write(os(), indent(), nullptr, nullptr);
    os() << "\n";
    at_indent() << "{\n";
    indent().increment();
    if (has_natives) {
        // A native value cannot be carried by a streamable.
        for (const auto& p : params)
            at_indent() << "static_cast<void>(" << p.second.second << ");\n";
        at_indent() << "throw CORBA::NO_IMPLEMENT();\n";
    } else {
        for (const auto& p : params)
            at_indent() << map.streamable(p.first) << " " << yvstrmvar(p.second.second.c_str()) << "("
                        << binding(p.first, p.second.first, p.second.second) << ");\n";
        const std::string result_strm = yvstrmvar("_result");
        if (!is_void(result)) {
            const bool by_value = result_by_value(result);
            at_indent() << result_type << " " << result_var << " = " << (by_value ? result_type + "()" : "0") << ";\n";
            at_indent() << map.streamable(result) << " " << result_strm << "(&" << result_var
                        << (by_value ? "" : ", YV_Cxx::usage_borrow") << ");\n";
        }
        if (!params.empty()) {
            at_indent() << "YV_Cxx::CallArguments " << args_var << ";\n";
            for (const auto& p : params)
                at_indent() << args_var << "." << direction_call(p.second.first) << "("
                            << yvstrmvar(p.second.second.c_str()) << ");\n";
        }
        at_indent() << "_yv_invoke(" << CxxLiteral::string_literal(request, false) << ", "
                    << (params.empty() ? std::string("0") : "&" + std::string(args_var)) << ", "
                    << (is_void(result) ? std::string("0") : "&" + result_strm) << ");\n";
        if (!is_void(result))
            at_indent() << "return " << result_var << ";\n";
    }
    indent().decrement();
    at_indent() << "}\n\n";
}
