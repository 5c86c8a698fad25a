#include "CxxTypeMapping.h"

#include "AST_Array.h"
#include "AST_EnumVal.h"
#include "AST_Exception.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_PredefinedType.h"
#include "AST_Sequence.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionFwd.h"
#include "AST_ValueFwd.h"
#include "NameResolver.h"
#include "UTL_Scope.h"

namespace {

// The runtime's type code constant of a predefined type.
const char* predefined_typecode(AST_PredefinedType::PredefinedType pt)
{
    switch (pt) {
    case AST_PredefinedType::PT_long: return "CORBA::_tc_long";
    case AST_PredefinedType::PT_ulong: return "CORBA::_tc_ulong";
    case AST_PredefinedType::PT_longlong: return "CORBA::_tc_longlong";
    case AST_PredefinedType::PT_ulonglong: return "CORBA::_tc_ulonglong";
    case AST_PredefinedType::PT_short: return "CORBA::_tc_short";
    case AST_PredefinedType::PT_ushort: return "CORBA::_tc_ushort";
    case AST_PredefinedType::PT_float: return "CORBA::_tc_float";
    case AST_PredefinedType::PT_double: return "CORBA::_tc_double";
    case AST_PredefinedType::PT_longdouble: return "CORBA::_tc_longdouble";
    case AST_PredefinedType::PT_char: return "CORBA::_tc_char";
    case AST_PredefinedType::PT_wchar: return "CORBA::_tc_wchar";
    case AST_PredefinedType::PT_boolean: return "CORBA::_tc_boolean";
    case AST_PredefinedType::PT_octet: return "CORBA::_tc_octet";
    case AST_PredefinedType::PT_any: return "CORBA::_tc_any";
    case AST_PredefinedType::PT_void: return "CORBA::_tc_void";
    case AST_PredefinedType::PT_typecode: return "CORBA::_tc_TypeCode";
    case AST_PredefinedType::PT_principal: return "CORBA::_tc_Principal";
    }
    return "CORBA::_tc_null";
}

} // namespace

AST_Type* CxxTypeMapping::resolved(AST_Type* t)
{
    for (int guard = 0; t && guard < 1000; ++guard) {
        if (AST_Typedef* td = AST_Typedef::narrow_from_decl(t))
            t = td->base_type();
        else if (AST_InterfaceFwd* f = AST_InterfaceFwd::narrow_from_decl(t); f && f->full_definition())
            t = f->full_definition();
        else if (AST_ValueFwd* f = AST_ValueFwd::narrow_from_decl(t); f && f->full_definition())
            t = f->full_definition();
        else if (AST_StructFwd* f = AST_StructFwd::narrow_from_decl(t); f && f->full_definition())
            t = f->full_definition();
        else if (AST_UnionFwd* f = AST_UnionFwd::narrow_from_decl(t); f && f->full_definition())
            t = f->full_definition();
        else
            return t;
    }
    return t;
}

CxxTypeMapping::Kind CxxTypeMapping::kind_of(AST_Type* t)
{
    AST_Type* r = resolved(t);
    if (!r)
        return K_unknown;
    switch (r->node_type()) {
    case AST_Decl::NT_pre_defined:
        switch (AST_PredefinedType::narrow_from_decl(r)->pt()) {
        case AST_PredefinedType::PT_void: return K_void;
        case AST_PredefinedType::PT_any: return K_any;
        case AST_PredefinedType::PT_typecode: return K_typecode;
        case AST_PredefinedType::PT_principal: return K_principal;
        default: return K_basic;
        }
    case AST_Decl::NT_string: return AST_String::narrow_from_decl(r)->is_wide() ? K_wstring : K_string;
    case AST_Decl::NT_object: return K_object;
    case AST_Decl::NT_interface:
    case AST_Decl::NT_interface_fwd: return K_interface;
    case AST_Decl::NT_enum: return K_enum;
    case AST_Decl::NT_struct:
    case AST_Decl::NT_struct_fwd: return K_struct;
    case AST_Decl::NT_union:
    case AST_Decl::NT_union_fwd: return K_union;
    case AST_Decl::NT_sequence: return K_sequence;
    case AST_Decl::NT_array: return K_array;
    case AST_Decl::NT_fixed: return K_fixed;
    case AST_Decl::NT_value:
    case AST_Decl::NT_value_fwd:
    case AST_Decl::NT_value_box: return K_value;
    case AST_Decl::NT_valuebase: return K_valuebase;
    case AST_Decl::NT_native: return K_native;
    case AST_Decl::NT_except: return K_exception;
    default: return K_unknown;
    }
}

CxxTypeMapping::Mode CxxTypeMapping::mode_of(AST_Argument::Direction d)
{
    switch (d) {
    case AST_Argument::dir_OUT: return M_out;
    case AST_Argument::dir_INOUT: return M_inout;
    default: return M_in;
    }
}

namespace {

// False for a structure or union known only from a forward declaration:
// it is not marked defined and holds no members.
bool is_defined_aggregate(AST_Type* t)
{
    UTL_Scope* members = DeclAsScope(t);
    if (!members)
        return false;
    if (AST_Union* u = AST_Union::narrow_from_decl(t))
        return u->is_defined() || !members->decls().empty();
    if (AST_Structure* s = AST_Structure::narrow_from_decl(t))
        return s->is_defined() || !members->decls().empty() || AST_Exception::narrow_from_decl(t) != nullptr;
    return false;
}

// `open` holds the aggregates being examined further up, so that a
// structure reached again through its own members ends the descent; `cut`
// is set when that happened, since the answer then depends on the path and
// is not kept with the type.
bool fixed_length(AST_Type* t, std::set<AST_Decl*>& open, bool& cut)
{
    AST_Type* r = CxxTypeMapping::resolved(t);
    if (!r)
        return true;
    switch (CxxTypeMapping::kind_of(r)) {
    case CxxTypeMapping::K_void:
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_enum:
    case CxxTypeMapping::K_fixed:
        return true;
    case CxxTypeMapping::K_array:
        return fixed_length(AST_Array::narrow_from_decl(r)->base_type(), open, cut);
    case CxxTypeMapping::K_struct:
    case CxxTypeMapping::K_union:
    case CxxTypeMapping::K_exception: {
        if (r->known_length() != AST_Type::Length::Unknown)
            return r->known_length() == AST_Type::Length::Fixed;
        // A structure or union seen only in a forward declaration counts
        // as variable: its members are unknown.
        if (!is_defined_aggregate(r))
            return false;
        if (!open.insert(r).second) {
            cut = true;
            return false;
        }
        bool fixed = true;
        bool inner_cut = false;
        for (const auto& d : DeclAsScope(r)->decls()) {
            AST_Field* f = AST_Field::narrow_from_decl(d.get());
            if (f && !fixed_length(f->field_type(), open, inner_cut)) {
                fixed = false;
                break;
            }
        }
        open.erase(r);
        if (inner_cut)
            cut = true;
        else
            r->set_known_length(fixed ? AST_Type::Length::Fixed : AST_Type::Length::Variable);
        return fixed;
    }
    default:
        return false;
    }
}

} // namespace

bool CxxTypeMapping::is_fixed_length(AST_Type* t)
{
    std::set<AST_Decl*> open;
    bool cut = false;
    return fixed_length(t, open, cut);
}

const char* CxxTypeMapping::predefined_base(AST_PredefinedType::PredefinedType pt)
{
    switch (pt) {
    case AST_PredefinedType::PT_long: return "CORBA::Long";
    case AST_PredefinedType::PT_ulong: return "CORBA::ULong";
    case AST_PredefinedType::PT_longlong: return "CORBA::LongLong";
    case AST_PredefinedType::PT_ulonglong: return "CORBA::ULongLong";
    case AST_PredefinedType::PT_short: return "CORBA::Short";
    case AST_PredefinedType::PT_ushort: return "CORBA::UShort";
    case AST_PredefinedType::PT_float: return "CORBA::Float";
    case AST_PredefinedType::PT_double: return "CORBA::Double";
    case AST_PredefinedType::PT_longdouble: return "CORBA::LongDouble";
    case AST_PredefinedType::PT_char: return "CORBA::Char";
    case AST_PredefinedType::PT_wchar: return "CORBA::WChar";
    case AST_PredefinedType::PT_boolean: return "CORBA::Boolean";
    case AST_PredefinedType::PT_octet: return "CORBA::Octet";
    case AST_PredefinedType::PT_any: return "CORBA::Any";
    case AST_PredefinedType::PT_void: return "void";
    case AST_PredefinedType::PT_typecode: return "CORBA::TypeCode";
    case AST_PredefinedType::PT_principal: return "CORBA::Principal";
    }
    return "";
}

unsigned long CxxTypeMapping::string_bound(AST_Type* t)
{
    AST_String* s = AST_String::narrow_from_decl(resolved(t));
    return s ? s->max_size() : 0;
}

CxxTypeTexts::Entry& CxxTypeMapping::texts(AST_Decl* d) const
{
    UTL_Scope* from = m_from;
    switch (d->node_type()) {
    case AST_Decl::NT_pre_defined:
    case AST_Decl::NT_string:
    case AST_Decl::NT_object:
    case AST_Decl::NT_valuebase:
    case AST_Decl::NT_fixed:
        from = nullptr;  // no scoped names in the text
        break;
    case AST_Decl::NT_sequence:
    case AST_Decl::NT_array:
        break;  // the element's name, seen from the scope
    default:
        // A named declaration's texts hold its own name, which a scope
        // changes only when it encloses the declaration (name_in_scope).
        if (from) {
            const std::string& full = m_resolver.scoped_name(d);
            const std::string& scope = m_resolver.scoped_name(ScopeAsDecl(from));
            if (scope.empty() || full.size() <= scope.size() + 2 || full.compare(0, scope.size(), scope) != 0 ||
                full.compare(scope.size(), 2, "::") != 0)
                from = nullptr;
        }
    }
    return CxxTypeTexts::of(d, m_resolver.number(), m_nested, from);
}

const std::string& CxxTypeMapping::full_name(AST_Decl* d) const
{
    CxxTypeTexts::Entry& e = texts(d);
    return e.has(CxxTypeTexts::scoped) ? e.texts[CxxTypeTexts::scoped]
                                       : e.keep(CxxTypeTexts::scoped, make_scoped_name(d));
}

std::string CxxTypeMapping::make_scoped_name(AST_Decl* d) const
{
    std::string name = m_from ? m_resolver.name_in_scope(d, m_from) : m_resolver.scoped_name(d);
    if (!m_nested || !d->defined_in())
        return name;
    // The outermost component of a fully scoped name: a nested declaration
    // of that name would capture it.
    AST_Decl* outer = d;
    for (AST_Decl* s = ScopeAsDecl(d->defined_in()); s && s->node_type() != AST_Decl::NT_root;
         s = ScopeAsDecl(s->defined_in()))
        outer = s;
    if (!m_nested->count(m_resolver.local_name(outer)))
        return name;
    if (m_from && m_resolver.scoped_name(d) != name)
        return name;  // relative to an enclosing scope: the nearest already
    return "::" + name;
}

std::string CxxTypeMapping::scope_prefix(AST_Decl* d) const
{
    std::string full = scoped_name(d);
    std::string local = m_resolver.local_name(d);
    return full.size() > local.size() ? full.substr(0, full.size() - local.size()) : std::string();
}

const std::string& CxxTypeMapping::name(AST_Type* declared) const
{
    static const std::string void_name("void");
    if (!declared)
        return void_name;
    CxxTypeTexts::Entry& e = texts(declared);
    return e.has(CxxTypeTexts::name) ? e.texts[CxxTypeTexts::name]
                                     : e.keep(CxxTypeTexts::name, make_name(declared));
}

std::string CxxTypeMapping::make_name(AST_Type* declared) const
{
    switch (declared->node_type()) {
    case AST_Decl::NT_pre_defined: return predefined_base(AST_PredefinedType::narrow_from_decl(declared)->pt());
    case AST_Decl::NT_string: return AST_String::narrow_from_decl(declared)->is_wide() ? "CORBA::WChar*" : "char*";
    case AST_Decl::NT_object: return "CORBA::Object";
    case AST_Decl::NT_valuebase: return "CORBA::ValueBase";
    case AST_Decl::NT_fixed: {
        AST_Fixed* f = AST_Fixed::narrow_from_decl(declared);
        return "YV_Cxx::FixedT<" + std::to_string(f->digits()) + ", " + std::to_string(f->scale()) + ">";
    }
    case AST_Decl::NT_sequence: return sequence(AST_Sequence::narrow_from_decl(declared));
    case AST_Decl::NT_array: return array_type(AST_Array::narrow_from_decl(declared));
    case AST_Decl::NT_interface_fwd:
    case AST_Decl::NT_value_fwd:
    case AST_Decl::NT_struct_fwd:
    case AST_Decl::NT_union_fwd: {
        AST_Type* full = resolved(declared);
        return scoped_name(full && full != declared ? full : declared);
    }
    default: return scoped_name(declared);
    }
}

const std::string& CxxTypeMapping::param(AST_Type* t, Mode m) const
{
    static const std::string void_name("void"), void_ref("void&");
    if (!t)
        return m == M_in || m == M_return ? void_name : void_ref;
    const auto which = static_cast<CxxTypeTexts::Text>(CxxTypeTexts::param_in + m);
    CxxTypeTexts::Entry& e = texts(t);
    return e.has(which) ? e.texts[which] : e.keep(which, make_param(t, m));
}

std::string CxxTypeMapping::make_param(AST_Type* t, Mode m) const
{
    const std::string& n = name(t);
    switch (kind_of(t)) {
    case K_void: return "void";
    case K_basic:
    case K_enum:
        return m == M_in || m == M_return ? n : m == M_inout ? n + "&" : n + "_out";
    case K_string:
    case K_wstring: {
        const std::string ch = kind_of(t) == K_wstring ? "CORBA::WChar" : "char";
        switch (m) {
        case M_in: return "const " + ch + "*";
        case M_inout: return ch + "*&";
        case M_out: return kind_of(t) == K_wstring ? "CORBA::WString_out" : "CORBA::String_out";
        case M_return: return ch + "*";
        }
        break;
    }
    case K_any:
        return m == M_in ? "const " + n + "&" : m == M_inout ? n + "&" : m == M_out ? n + "_out" : n + "*";
    case K_typecode:
    case K_principal:
    case K_object:
    case K_interface:
        return m == M_inout ? n + "_ptr&" : m == M_out ? n + "_out" : n + "_ptr";
    case K_struct:
    case K_union:
    case K_sequence: {
        const bool fixed = kind_of(t) != K_sequence && is_fixed_length(t);
        switch (m) {
        case M_in: return "const " + n + "&";
        case M_inout: return n + "&";
        case M_out: return fixed ? n + "&" : n + "_out";
        case M_return: return fixed ? n : n + "*";
        }
        break;
    }
    case K_array:
        switch (m) {
        case M_in: return "const " + n;
        case M_inout: return n;
        case M_out: return is_fixed_length(t) ? n : n + "_out";
        case M_return: return n + "_slice*";
        }
        break;
    case K_fixed:
        return m == M_in ? "const " + n + "&" : m == M_return ? n : n + "&";
    case K_value:
    case K_valuebase:
        return m == M_inout ? n + "*&" : m == M_out ? n + "_out" : n + "*";
    case K_native:
    case K_exception:
    case K_unknown:
        return m == M_in || m == M_return ? n : n + "&";
    }
    return n;
}

std::string CxxTypeMapping::storage(AST_Type* t, Mode m) const
{
    const std::string n = name(t);
    switch (kind_of(t)) {
    case K_void: return "void";
    case K_string: return "char*";
    case K_wstring: return "CORBA::WChar*";
    case K_any: return m == M_in || m == M_inout ? n : n + "*";
    case K_typecode:
    case K_principal:
    case K_object:
    case K_interface: return n + "_ptr";
    case K_struct:
    case K_union:
    case K_sequence:
        if (m == M_in || m == M_inout || (kind_of(t) != K_sequence && is_fixed_length(t)))
            return n;
        return n + "*";
    case K_array:
        if (m == M_in || m == M_inout || is_fixed_length(t))
            return n;
        return n + "_slice*";
    case K_value:
    case K_valuebase: return n + "*";
    default: return n;
    }
}

const std::string& CxxTypeMapping::streamable(AST_Type* t) const
{
    static const std::string none;
    if (!t)
        return none;
    CxxTypeTexts::Entry& e = texts(t);
    return e.has(CxxTypeTexts::streamable) ? e.texts[CxxTypeTexts::streamable]
                                           : e.keep(CxxTypeTexts::streamable, make_streamable(t));
}

std::string CxxTypeMapping::make_streamable(AST_Type* t) const
{
    const std::string& n = name(t);
    switch (kind_of(t)) {
    case K_basic:
    case K_enum:
    case K_fixed: return "YV_Cxx::BasicStreamable<" + n + ">";
    case K_string: return "YV_Cxx::StringStreamable";
    case K_wstring: return "YV_Cxx::WStringStreamable";
    case K_any: return "YV_Cxx::AnyStreamable";
    case K_struct:
    case K_union:
    case K_sequence: return "YV_Cxx::VarStreamable<" + n + ">";
    case K_array: return "YV_Cxx::ArrayStreamable<" + n + ">";
    case K_typecode:
    case K_principal:
    case K_object:
    case K_interface: return "YV_Cxx::ObjRefStreamable<" + n + ">";
    case K_value:
    case K_valuebase: return "YV_Cxx::ValueStreamable<" + n + ">";
    default: return std::string();
    }
}

std::string CxxTypeMapping::anonymous_string_tc_name(AST_Type* t)
{
    AST_String* s = AST_String::narrow_from_decl(resolved(t));
    if (!s)
        return std::string();
    return std::string(s->is_wide() ? "_yv_tc_wstring_" : "_yv_tc_string_") + std::to_string(s->max_size());
}

std::string CxxTypeMapping::typecode(AST_Type* t) const
{
    if (!t)
        return "CORBA::_tc_void";
    switch (t->node_type()) {
    case AST_Decl::NT_pre_defined: return predefined_typecode(AST_PredefinedType::narrow_from_decl(t)->pt());
    case AST_Decl::NT_string: {
        AST_String* s = AST_String::narrow_from_decl(t);
        if (s->max_size() == 0)
            return s->is_wide() ? "CORBA::_tc_wstring" : "CORBA::_tc_string";
        return "&" + anonymous_string_tc_name(t);
    }
    case AST_Decl::NT_object: return "CORBA::_tc_Object";
    case AST_Decl::NT_valuebase: return "CORBA::_tc_ValueBase";
    case AST_Decl::NT_sequence:
    case AST_Decl::NT_array:
    case AST_Decl::NT_fixed: return "CORBA::_tc_null";
    default: {
        AST_Type* full = resolved(t);
        AST_Decl* named = t->node_type() == AST_Decl::NT_typedef || !full ? t : full;
        return scope_prefix(named) + "_tc_" + m_resolver.local_name(named);
    }
    }
}

std::string CxxTypeMapping::member(AST_Type* t) const
{
    if (!t)
        return "void";
    if (AST_Array* a = AST_Array::narrow_from_decl(t))
        return member(a->base_type());
    switch (kind_of(t)) {
    case K_string: return "CORBA::String_var";
    case K_wstring: return "CORBA::WString_var";
    case K_principal:
    case K_typecode:
    case K_object:
    case K_interface:
    case K_value:
    case K_valuebase: return name(t) + "_var";
    default: return name(t);
    }
}

std::string CxxTypeMapping::sequence(AST_Sequence* s) const
{
    const std::string element = member(s->base_type());
    if (s->max_size() != 0)
        return "YV_Cxx::BoundedSequence<" + element + ", " + std::to_string(s->max_size()) + ">";
    return "YV_Cxx::UnboundedSequence<" + element + ">";
}

std::string CxxTypeMapping::array_declarator(AST_Array* a, const std::string& name)
{
    std::string text = name;
    for (unsigned long dim : a->dims())
        text += "[" + std::to_string(dim) + "]";
    return text;
}

std::string CxxTypeMapping::array_type(AST_Array* a) const { return array_declarator(a, member(a->base_type())); }

std::string CxxTypeMapping::assign_member(AST_Type* t, const std::string& target, const std::string& source) const
{
    switch (kind_of(t)) {
    case K_typecode:
    case K_principal:
    case K_object:
    case K_interface:
        return target + " = YV_Cxx::ObjRefTraits<" + name(t) + ">::duplicate(" + source + ")";
    case K_value:
    case K_valuebase:
        return target + " = YV_Cxx::ValueTraits<" + name(t) + ">::duplicate(" + source + ")";
    case K_array:
        return "YV_Cxx::array_copy<" + name(t) + ">(" + target + ", " + source + ")";
    default:
        return target + " = " + source;
    }
}

std::string CxxTypeMapping::member_reader(AST_Type* t) const
{
    const std::string n = name(t);
    switch (kind_of(t)) {
    case K_string: return "const char*";
    case K_wstring: return "const CORBA::WChar*";
    case K_typecode:
    case K_principal:
    case K_object:
    case K_interface: return n + "_ptr";
    case K_value:
    case K_valuebase: return n + "*";
    case K_struct:
    case K_union:
    case K_sequence:
    case K_any:
    case K_fixed: return "const " + n + "&";
    case K_array: return "const YV_Cxx::ArraySlice<" + n + ">*";
    default: return n;
    }
}

bool CxxTypeMapping::has_member_modifier(AST_Type* t)
{
    switch (kind_of(t)) {
    case K_struct:
    case K_union:
    case K_sequence:
    case K_any:
    case K_fixed:
    case K_array: return true;
    default: return false;
    }
}

std::string CxxTypeMapping::tc_kind(AST_Decl* d)
{
    switch (d ? d->node_type() : AST_Decl::NT_root) {
    case AST_Decl::NT_struct: return "CORBA::tk_struct";
    case AST_Decl::NT_union: return "CORBA::tk_union";
    case AST_Decl::NT_enum: return "CORBA::tk_enum";
    case AST_Decl::NT_except: return "CORBA::tk_except";
    case AST_Decl::NT_typedef: return "CORBA::tk_alias";
    case AST_Decl::NT_value: return "CORBA::tk_value";
    case AST_Decl::NT_value_box: return "CORBA::tk_value_box";
    case AST_Decl::NT_native: return "CORBA::tk_native";
    case AST_Decl::NT_interface: {
        AST_Interface* i = AST_Interface::narrow_from_decl(d);
        return i->is_local() ? "CORBA::tk_local_interface"
                             : i->is_abstract() ? "CORBA::tk_abstract_interface" : "CORBA::tk_objref";
    }
    default: return "CORBA::tk_null";
    }
}

std::string CxxTypeMapping::enumerator(AST_EnumVal* v) const
{
    AST_Decl* e = ScopeAsDecl(v->defined_in());
    return (e ? scope_prefix(e) : std::string()) + m_resolver.local_name(v);
}

std::string CxxTypeMapping::member_declaration(AST_Type* t, const std::string& name) const
{
    if (AST_Array* a = AST_Array::narrow_from_decl(t))
        return member(a->base_type()) + " " + array_declarator(a, name);
    return member(t) + " " + name;
}

std::string CxxTypeMapping::member_writer(AST_Type* t) const
{
    if (kind_of(t) == K_array)
        return "const YV_Cxx::ArraySlice<" + name(t) + ">*";
    return param(t, M_in);
}

std::string CxxTypeMapping::member_modifier(AST_Type* t) const
{
    if (kind_of(t) == K_array)
        return "YV_Cxx::ArraySlice<" + name(t) + ">*";
    return name(t) + "&";
}

std::string CxxTypeMapping::member_declaration_of_alias(AST_Type* t, const std::string& name) const
{
    if (AST_Array* a = AST_Array::narrow_from_decl(t))
        return member(a->base_type()) + " " + array_declarator(a, name);
    return this->name(t) + " " + name;
}
