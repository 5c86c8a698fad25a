#include "CxxClientText.h"

#include "AST_Decl.h"
#include "AST_Type.h"
#include "CxxTypeQueries.h"
#include "GEN_CPlusPlus.h"
#include "NameResolver.h"
#include "UTL_Scope.h"
#include "VIS_Cxx.h"

#include <ostream>

CxxClientText::CxxClientText(VIS_Cxx* v)
    : m_visitor(v), m_resolver(v->resolver()),
      m_gen(v->generator() ? static_cast<GEN_CPlusPlus*>(v->generator()->narrow(&GEN_CPlusPlus::_narrow_tag))
                           : nullptr),
      m_map(v->resolver(), nullptr)
{
}

std::string CxxClientText::local(AST_Decl* d) const { return m_resolver.local_name(d); }

std::string CxxClientText::full(AST_Decl* d) const { return m_map.full_name(d); }

std::ostream& CxxClientText::at_indent() const { return m_visitor->stream() << m_visitor->indent(); }

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
    at_indent() << keyword << " " << name << ";\n";
    if (first_companions(full ? full : fwd))
        write_companions(full, name, fwd->defined_in());
    m_visitor->stream() << "\n";
}

std::string CxxClientText::class_macro() const
{
    return m_gen && m_gen->declspecs_on() ? std::string(m_gen->declspec()) + " " : std::string();
}

void CxxClientText::write_typecode_declaration(AST_Decl* d) const
{
    const std::string storage = in_class(d->defined_in()) ? "static " : "extern " + class_macro();
    at_indent() << storage << "const CORBA::TypeCode_ptr _tc_" << local(d) << ";\n";
}

void CxxClientText::write_companions(AST_Type* t, const std::string& n, UTL_Scope* where) const
{
    auto line = [this](const std::string& text) { at_indent() << text << "\n"; };
    auto var_out = [&](const std::string& var, const std::string& out) {
        line("typedef " + var + " " + n + "_var;");
        line("typedef " + out + " " + n + "_out;");
    };
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_enum: line("typedef " + n + "& " + n + "_out;"); break;
    case CxxTypeMapping::K_string: var_out("CORBA::String_var", "CORBA::String_out"); break;
    case CxxTypeMapping::K_wstring: var_out("CORBA::WString_var", "CORBA::WString_out"); break;
    case CxxTypeMapping::K_any: var_out("CORBA::Any_var", "CORBA::Any_out"); break;
    case CxxTypeMapping::K_fixed: var_out("CORBA::Fixed_var", "CORBA::Fixed_out"); break;
    case CxxTypeMapping::K_principal:
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
        line("typedef " + n + "* " + n + "_ptr;");
        var_out("YV_Cxx::ObjRef_var<" + n + ">", "YV_Cxx::ObjRef_out<" + n + ">");
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
        const std::string slice = n + "_slice";
        line("typedef YV_Cxx::ArraySlice<" + n + "> " + slice + ";");
        var_out("YV_Cxx::Array_var<" + n + ">", isFixedLength(t) ? n : "YV_Cxx::Array_out<" + n + ">");
        line("typedef YV_Cxx::Array_forany<" + n + "> " + n + "_forany;");
        line(fn + slice + "* " + n + "_alloc() { return YV_Cxx::array_alloc<" + n + ">(); }");
        line(fn + slice + "* " + n + "_dup(const " + slice + "* from) { return YV_Cxx::array_dup<" + n + ">(from); }");
        line(fn + "void " + n + "_copy(" + slice + "* to, const " + slice + "* from) { YV_Cxx::array_copy<" + n +
             ">(to, from); }");
        line(fn + "void " + n + "_free(" + slice + "* a) { YV_Cxx::array_free<" + n + ">(a); }");
        break;
    }
    default: break;
    }
}
