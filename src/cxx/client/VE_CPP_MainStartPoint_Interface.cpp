#include "VE_CPP_MainStartPoint_Interface.h"

#include "AST_Argument.h"
#include "AST_Exception.h"
#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "CxxClientText.h"
#include "CxxRuntimeNames.h"
#include "CxxLiteral.h"
#include "CxxTypeQueries.h"
#include "GEN_CPlusPlus.h"
#include "ReplyHandlerBuilder.h"
#include "VE_HH_MainStartPoint_Interface.h"

#include <algorithm>
#include <memory>

namespace {

const char* const result_var = "_yvl_result";
const char* const args_var = "_yvl_args";

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

// The letter of a direction in the argument string of CallArguments::invoke.
char direction_letter(CxxTypeMapping::Mode m)
{
    return m == CxxTypeMapping::M_out ? 'o' : m == CxxTypeMapping::M_inout ? 'b' : 'i';
}

} // namespace

VE_CPP_MainStartPoint_Interface::Binding VE_CPP_MainStartPoint_Interface::binding(AST_Type* t,
                                                                                  CxxTypeMapping::Mode m)
{
    const Binding address{"&", ""};
    const Binding borrowed{"&", ", YV_Cxx::usage_borrow"};
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string:
    case CxxTypeMapping::K_wstring: return m == CxxTypeMapping::M_inout ? borrowed : address;
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_principal:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
    case CxxTypeMapping::K_value:
    case CxxTypeMapping::K_valuebase: return m == CxxTypeMapping::M_out ? address : borrowed;
    case CxxTypeMapping::K_array: return m == CxxTypeMapping::M_out && !isFixedLength(t) ? address : Binding{"", ""};
    default: return address;
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

void VE_CPP_MainStartPoint_Interface::pair_handlers(AST_Interface* h, AST_Interface* i, HandlerTargets& targets,
                                                    NameResolver& resolver)
{
    targets[h] = i;
    const std::vector<AST_Interface*> bases = ReplyHandlerBuilder::bases_with_handlers(i, resolver);
    const std::size_t n = std::min(h->inherits().size(), bases.size());
    for (std::size_t k = 0; k < n; ++k)
        pair_handlers(h->inherits()[k], bases[k], targets, resolver);
}

long VE_CPP_MainStartPoint_Interface::visit(AST_Decl* d)
{
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    if (!CxxRuntimeNames::provided(i, resolver()))
        output_interface(p, i, HandlerTargets());
    GEN_CPlusPlus* gen = text.generator();
    if (gen && gen->ami_callbacks_on() && !i->is_local()) {
        std::unique_ptr<AST_Interface> handler(VE_HH_MainStartPoint_Interface(visitor()).create_full_ami_handler(i));
        HandlerTargets targets;
        pair_handlers(handler.get(), i, targets, resolver());
        output_interface(p, handler.get(), targets);
    }
    return 1;
}

void VE_CPP_MainStartPoint_Interface::output_interface(CxxPrinter& p, AST_Interface* i, const HandlerTargets& targets)
{
    output_type_id(p, i);
    output_typecode(p, i);
    p.print("\n");
    output_narrow(p, i);
    output_reference_helpers(p, i);
    for (const auto& member : i->decls()) {
        AST_Decl* d = member.get();
        if (d->node_type() != AST_Decl::NT_op && d->node_type() != AST_Decl::NT_attr && d->in_main_file())
            d->accept(visitor());
    }
    if (!i->is_local())
        output_proxy(p, i, targets);
    // A reply handler is no type of the tree: no operators are declared for it.
    if (targets.empty())
        output_any_operators(p, i);
}

void VE_CPP_MainStartPoint_Interface::output_narrow(CxxPrinter& p, AST_Interface* i)
{
    CxxClientText text(visitor());
    const std::string full = text.full(i);
    const std::string proxy = text.mapping().scope_prefix(i) + "YV_Gen_DynamicProxy_" + text.local(i);
    if (i->is_abstract()) {
        output_abstract_narrow(p, full, proxy);
        return;
    }
    for (const char* narrow : {"_narrow", "_unchecked_narrow"}) {
        p.member(full + "_ptr", full + "::" + narrow, {"CORBA::Object_ptr _yvp_obj"}, "\n");
        auto body = p.block("{\n", "}\n\n");
        if (i->is_local())
            p.print("return _duplicate(dynamic_cast<$full$_ptr>(_yvp_obj));\n", {{"full", full}});
        else
            p.print("return YV_Cxx::$helper$<$full$, $proxy$>(_yvp_obj);\n",
                    {{"helper", std::string(narrow) == "_narrow" ? "narrow_reference" : "unchecked_narrow_reference"},
                     {"full", full},
                     {"proxy", proxy}});
    }
}

void VE_CPP_MainStartPoint_Interface::output_abstract_narrow(CxxPrinter& p, const std::string& full,
                                                             const std::string& proxy)
{
    const CxxPrinter::Vars vars{{"full", full}, {"proxy", proxy}};
    // A value or a proxy that already is one is shared; an object reference
    // of another kind is asked (or, unchecked, just wrapped).
    for (const char* narrow : {"_narrow", "_unchecked_narrow"}) {
        p.member(full + "_ptr", full + "::" + narrow, {"CORBA::AbstractBase_ptr _yvp_obj"}, "\n");
        auto body = p.block("{\n", "}\n\n");
        p.print("if (!_yvp_obj)\n    return nullptr;\n"
                "if ($full$_ptr _yvl_typed = dynamic_cast<$full$_ptr>(_yvp_obj))\n    return _duplicate(_yvl_typed);\n"
                "return YV_Cxx::$helper$<$full$, $proxy$>(_yvp_obj->_yv_object());\n",
                {{"full", full},
                 {"proxy", proxy},
                 {"helper", std::string(narrow) == "_narrow" ? "narrow_reference" : "unchecked_narrow_reference"}});
    }
    p.member(full + "_ptr", full + "::_yv_from_object", {"CORBA::Object_ptr _yvp_obj"}, "\n");
    auto body = p.block("{\n", "}\n\n");
    p.print("return YV_Cxx::unchecked_narrow_reference<$full$, $proxy$>(_yvp_obj);\n", vars);
}

void VE_CPP_MainStartPoint_Interface::output_reference_helpers(CxxPrinter& p, AST_Interface* i)
{
    CxxClientText text(visitor());
    const std::string full = text.full(i);
    // Friends of a class-mapped module are functions of the global namespace.
    const std::string scope = text.in_class(i->defined_in()) ? "" : text.mapping().scope_prefix(i);
    const CxxPrinter::Vars vars{{"full", full}, {"scope", scope}};
    if (i->is_abstract()) {
        // An abstract interface is an object reference only when it is one;
        // it travels through its own Marshal, never as a plain object.
        p.print("$full$_ptr $scope$yv_ref_duplicate($full$_ptr _yvp_obj) { return YV_Cxx::yv_ref_duplicate<$full$>(_yvp_obj); }\n"
                "void $scope$yv_ref_release($full$_ptr _yvp_obj) { YV_Cxx::yv_ref_release<$full$>(_yvp_obj); }\n"
                "CORBA::Object_ptr $scope$yv_ref_object($full$_ptr _yvp_obj) { return _yvp_obj ? _yvp_obj->_yv_object() : nullptr; }\n"
                "$full$_ptr $scope$yv_ref_narrow(CORBA::Object_ptr _yvp_obj, $full$_ptr) "
                "{ return $full$::_yv_from_object(_yvp_obj); }\n\n",
                vars);
        return;
    }
    p.print("$full$_ptr $scope$yv_ref_duplicate($full$_ptr _yvp_obj) { return YV_Cxx::yv_ref_duplicate<$full$>(_yvp_obj); }\n"
            "void $scope$yv_ref_release($full$_ptr _yvp_obj) { YV_Cxx::yv_ref_release<$full$>(_yvp_obj); }\n"
            "CORBA::Object_ptr $scope$yv_ref_object($full$_ptr _yvp_obj) { return _yvp_obj; }\n"
            "$full$_ptr $scope$yv_ref_narrow(CORBA::Object_ptr _yvp_obj, $full$_ptr) "
            "{ return YV_Cxx::yv_ref_narrow<$full$>(_yvp_obj, nullptr); }\n\n",
            vars);
}

void VE_CPP_MainStartPoint_Interface::output_proxy(CxxPrinter& p, AST_Interface* i, const HandlerTargets& targets)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    const std::string proxy = map.scope_prefix(i) + "YV_Gen_DynamicProxy_" + text.local(i) + "::";
    for (AST_Interface* x : VE_HH_MainStartPoint_Interface(visitor()).proxy_interfaces(i)) {
        auto target = targets.find(x);
        AST_Interface* handler_target = target == targets.end() ? nullptr : target->second;
        for (const auto& member : x->decls()) {
            if (AST_Operation* op = AST_Operation::narrow_from_decl(member.get())) {
                ProxyMember m{map.param(op->return_type(), CxxTypeMapping::M_return),
                              is_void(op->return_type()) ? nullptr : op->return_type(),
                              proxy + text.local(op),
                              {},
                              request_name(op, handler_target),
                              op->is_oneway() != 0,
                              op->exceptions()->items(),
                              op_has_natives(op)};
                m.params.reserve(op->decls().size());
                for (const auto& a : op->decls())
                    if (AST_Argument* arg = AST_Argument::narrow_from_decl(a.get()))
                        m.params.push_back({arg->field_type(), CxxTypeMapping::mode_of(arg->direction()), text.local(arg)});
                output_proxy_member(p, m);
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(member.get())) {
                const std::string name = a->local_name()->str();
                AST_Type* t = a->field_type();
                output_proxy_member(p, {map.param(t, CxxTypeMapping::M_return), t, proxy + text.local(a), {},
                                        "_get_" + name, false, a->get_exceptions()->items(), attr_has_natives(a)});
                if (!a->readonly())
                    output_proxy_member(p, {"void", nullptr, proxy + text.local(a),
                                            {{t, CxxTypeMapping::M_in, "_yvvar_" + text.local(a)}}, "_set_" + name,
                                            false, a->set_exceptions()->items(), attr_has_natives(a)});
            }
        }
    }
}

void VE_CPP_MainStartPoint_Interface::output_proxy_member(CxxPrinter& p, const ProxyMember& m)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    std::vector<std::string> params;
    params.reserve(m.params.size());
    for (const Param& param : m.params)
        params.push_back(map.param(param.type, param.mode) + " " + param.name);
    p.member_of(m.result_type, m.name, params, "\n");
    auto body = p.block("{\n", "}\n\n");
    if (m.has_natives) {
        // A native value cannot be carried by a streamable.
        for (const Param& param : m.params)
            p.print("static_cast<void>($name$);\n", {{"name", param.name}});
        p.print("throw CORBA::NO_IMPLEMENT();\n");
        return;
    }
    if (!m.raises.empty()) {
        auto list = p.block("static const YV_Cxx::UserExceptionInfo _yvl_raises[] = {\n", "};\n");
        for (AST_Exception* e : m.raises)
            p.print("{$id$, &YV_Cxx::read_and_raise<$e$>},\n",
                    {{"id", CxxLiteral::string_literal(e->repoID(), false)}, {"e", text.full(e)}});
    }
    p.print("static const YV_Cxx::Operation _yvl_op = {$request$, $oneway$, $raises$, $count$};\n",
            {{"request", CxxLiteral::string_literal(m.request, false)},
             {"oneway", m.oneway ? "true" : "false"},
             {"raises", m.raises.empty() ? "nullptr" : "_yvl_raises"},
             {"count", CxxPrinter::Num(static_cast<long long>(m.raises.size()))}});
    // The streamable of parameter a is _yvs_a.
    for (const Param& param : m.params) {
        const Binding b = binding(param.type, param.mode);
        p.print("$strm$ _yvs_$name$($address$$name$$usage$);\n",
                {{"strm", map.streamable(param.type)}, {"name", param.name}, {"address", b.address}, {"usage", b.usage}});
    }
    if (m.result) {
        const bool by_value = result_by_value(m.result);
        const CxxPrinter::Vars vars{{"type", m.result_type}, {"var", result_var}};
        if (by_value)
            p.print("$type$ $var$ = $type$();\n", vars);
        else
            p.print("$type$ $var$ = 0;\n", vars);
        p.print("$strm$ $var$(&$result$$usage$);\n", {{"strm", map.streamable(m.result)},
                                                     {"var", "_yvs__result"},
                                                     {"result", result_var},
                                                     {"usage", by_value ? "" : ", YV_Cxx::usage_borrow"}});
    }
    // The arguments as an array of streamables with a string of their
    // directions: the runtime builds the argument list.
    if (!m.params.empty()) {
        p.print("YV_Streamable* const $args$[] = {", {{"args", args_var}});
        p.list(m.params, ", ", [&p](const Param& param) { p.print("&_yvs_$name$", {{"name", param.name}}); });
        p.print("};\n");
    }
    std::string dirs = "\"";
    for (const Param& param : m.params)
        dirs += direction_letter(param.mode);
    dirs += '"';
    p.print("YV_Cxx::CallArguments::invoke(*this, _yvl_op, $dirs$, $args$, $result$);\n",
            {{"dirs", dirs},
             {"args", m.params.empty() ? "nullptr" : args_var},
             {"result", m.result ? "&_yvs__result" : "nullptr"}});
    if (m.result)
        p.print("return $var$;\n", {{"var", result_var}});
}
