#include "CxxClientText.h"

#include "AST_Decl.h"
#include "AST_Type.h"
#include "CxxRuntimeNames.h"
#include "CxxTypeQueries.h"
#include "GEN_CPlusPlus.h"
#include "NameResolver.h"
#include "UTL_Scope.h"
#include "VIS_Cxx.h"

CxxClientText::CxxClientText(VIS_Cxx* v)
    : m_visitor(v), m_resolver(v->resolver()),
      m_gen(v->generator() ? static_cast<GEN_CPlusPlus*>(v->generator()->narrow(&GEN_CPlusPlus::_narrow_tag))
                           : nullptr),
      m_map(v->resolver(), nullptr)
{
    if (m_gen)
        m_map.qualify_against(m_gen->capture_guard());
}

const std::string& CxxClientText::local(AST_Decl* d) const { return m_resolver.local_name(d); }

const std::string& CxxClientText::full(AST_Decl* d) const { return m_map.full_name(d); }

CxxPrinter CxxClientText::printer() const { return CxxPrinter(m_visitor->stream(), m_visitor->indent()); }

bool CxxClientText::in_class(UTL_Scope* s) const
{
    AST_Decl* d = ScopeAsDecl(s);
    if (!d)
        return false;
    switch (d->node_type()) {
    case AST_Decl::NT_root: return false;
    case AST_Decl::NT_module: return m_gen && !m_gen->namespace_support();
    default: return true;
    }
}

std::string CxxClientText::data_storage(UTL_Scope* s) const { return in_class(s) ? "static " : "extern "; }

std::string CxxClientText::function_storage(UTL_Scope* s) const { return in_class(s) ? "static " : "inline "; }

bool CxxClientText::first_companions(AST_Decl* d) const { return !m_gen || m_gen->first_companions(d); }

void CxxClientText::write_forward(const char* keyword, AST_Type* full, AST_Decl* fwd) const
{
    const std::string name = local(fwd);
    printer().print("$keyword$ $name$;\n", {{"keyword", keyword}, {"name", name}});
    if (first_companions(full ? full : fwd))
        write_companions(full, name, fwd->defined_in());
    printer().print("\n");
}

void CxxClientText::write_reference_helpers(AST_Decl* i, const std::string& n, UTL_Scope* where) const
{
    if (CxxRuntimeNames::provided(i, m_resolver))
        return;
    // Inside a class (modules mapped to classes) they are friends, which
    // argument-dependent lookup finds just the same.
    const std::string pre = (in_class(where) ? "friend " : "") + class_macro();
    const CxxPrinter::Vars vars{{"n", n}, {"pre", pre}};
    printer().print("$pre$$n$_ptr yv_ref_duplicate($n$_ptr _yvp_obj);\n"
                    "$pre$void yv_ref_release($n$_ptr _yvp_obj);\n"
                    "$pre$CORBA::Object_ptr yv_ref_object($n$_ptr _yvp_obj);\n"
                    "$pre$$n$_ptr yv_ref_narrow(CORBA::Object_ptr _yvp_obj, $n$_ptr);\n",
                    vars);
}

std::string CxxClientText::class_macro() const
{
    return m_gen && m_gen->declspecs_on() ? std::string(m_gen->declspec()) + " " : std::string();
}

void CxxClientText::write_typecode_declaration(AST_Decl* d) const
{
    const std::string storage = in_class(d->defined_in()) ? "static " : "extern " + class_macro();
    printer().print("$storage$const CORBA::TypeCode_ptr _tc_$name$;\n", {{"storage", storage}, {"name", local(d)}});
}

void CxxClientText::write_companions(AST_Type* t, const std::string& n, UTL_Scope* where) const
{
    CxxPrinter p = printer();
    auto var_out = [&](const std::string& var, const std::string& out) {
        p.print("typedef $var$ $n$_var;\ntypedef $out$ $n$_out;\n", {{"var", var}, {"out", out}, {"n", n}});
    };
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_enum: p.print("typedef $n$& $n$_out;\n", {{"n", n}}); break;
    case CxxTypeMapping::K_string: var_out("CORBA::String_var", "CORBA::String_out"); break;
    case CxxTypeMapping::K_wstring: var_out("CORBA::WString_var", "CORBA::WString_out"); break;
    case CxxTypeMapping::K_any: var_out("CORBA::Any_var", "CORBA::Any_out"); break;
    case CxxTypeMapping::K_fixed: var_out("YV_Cxx::Fix_var<" + n + ">", n + "&"); break;
    case CxxTypeMapping::K_principal:
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
        p.print("typedef $n$* $n$_ptr;\n", {{"n", n}});
        var_out("YV_Cxx::ObjRef_var<" + n + ">", "YV_Cxx::ObjRef_out<" + n + ">");
        if (t->node_type() == AST_Decl::NT_interface)
            write_reference_helpers(t, n, where);
        break;
    case CxxTypeMapping::K_value:
    case CxxTypeMapping::K_valuebase:
        var_out("YV_Cxx::Value_var<" + n + ">", "YV_Cxx::Value_out<" + n + ">");
        break;
    case CxxTypeMapping::K_struct:
    case CxxTypeMapping::K_union:
        if (isFixedLength(t))
            var_out("YV_Cxx::Fix_var<" + n + ">", n + "&");
        else
            var_out("YV_Cxx::Var_var<" + n + ">", "YV_Cxx::Var_out<" + n + ">");
        break;
    case CxxTypeMapping::K_sequence: var_out("YV_Cxx::Seq_var<" + n + ">", "YV_Cxx::Seq_out<" + n + ">"); break;
    case CxxTypeMapping::K_array: {
        const std::string fn = function_storage(where);
        const CxxPrinter::Vars vars{{"n", n}, {"fn", fn}};
        p.print("typedef YV_Cxx::ArraySlice<$n$> $n$_slice;\n", vars);
        var_out("YV_Cxx::Array_var<" + n + ">", isFixedLength(t) ? n : "YV_Cxx::Array_out<" + n + ">");
        {
            auto forany = p.block("class $n$_forany : public YV_Cxx::Array_forany<$n$>\n{\n  public:\n", "};\n", vars);
            p.print("using Array_forany::Array_forany;\n");
            p.print("using Array_forany::operator=;\n");
        }
        p.print("$fn$$n$_slice* $n$_alloc() { return YV_Cxx::array_alloc<$n$>(); }\n", vars);
        p.print("$fn$$n$_slice* $n$_dup(const $n$_slice* from) { return YV_Cxx::array_dup<$n$>(from); }\n", vars);
        p.print("$fn$void $n$_copy($n$_slice* to, const $n$_slice* from) { YV_Cxx::array_copy<$n$>(to, from); }\n",
                vars);
        p.print("$fn$void $n$_free($n$_slice* a) { YV_Cxx::array_free<$n$>(a); }\n", vars);
        break;
    }
    default: break;
    }
}
