#include "zantic_sys/YV_Cxx/TypeCodeFactory.h"

#include "../YV_TC/Discriminator.h"
#include "../YV_TC/TypeCodeCopier.h"
#include "../YV_TC/TypeCodeGraph.h"
#include "omg/CORBA.hh"

#include <cstring>
#include <set>
#include <string>

namespace YV_Cxx {

namespace {

// Minor codes of the standard (vendor id "OM").
const CORBA::ULong omg = 0x4f4d0000;
const CORBA::ULong invalid_name = omg | 15;
const CORBA::ULong invalid_repository_id = omg | 16;
const CORBA::ULong invalid_member_name = omg | 17;
const CORBA::ULong duplicate_label = omg | 18;
const CORBA::ULong incompatible_label = omg | 19;
const CORBA::ULong illegitimate_discriminator = omg | 20;
const CORBA::ULong illegitimate_member = omg | 2;

bool is_identifier(const char* s)
{
    if (s == nullptr)
        return false;
    if (*s == '\0')
        return true; // names are optional
    const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    if (!letter(*s) && *s != '_')
        return false;
    for (++s; *s != '\0'; ++s)
        if (!letter(*s) && *s != '_' && !(*s >= '0' && *s <= '9'))
            return false;
    return true;
}

void check_id_and_name(const char* id, const char* name)
{
    if (id == nullptr || std::strchr(id, ':') == nullptr)
        throw CORBA::BAD_PARAM(invalid_repository_id, CORBA::COMPLETED_NO);
    if (!is_identifier(name))
        throw CORBA::BAD_PARAM(invalid_name, CORBA::COMPLETED_NO);
}

void check_member_type(CORBA::TypeCode_ptr tc)
{
    if (tc == nullptr || tc->kind() == CORBA::tk_void || tc->kind() == CORBA::tk_except ||
        (tc->kind() == CORBA::tk_null && !tc->yv_is_placeholder()))
        throw CORBA::BAD_TYPECODE(illegitimate_member, CORBA::COMPLETED_NO);
}

template <class T>
CORBA::LongLong extracted(const CORBA::Any& label)
{
    T v = 0;
    if (!(label >>= v))
        throw CORBA::BAD_PARAM(incompatible_label, CORBA::COMPLETED_NO);
    return static_cast<CORBA::LongLong>(v);
}

// The label of a union member as the discriminator's value.
CORBA::LongLong label_value(const CORBA::Any& label, CORBA::TypeCode_ptr discriminator)
{
    if (!label.yv_type()->equivalent(discriminator) || !label.yv_has_value())
        throw CORBA::BAD_PARAM(incompatible_label, CORBA::COMPLETED_NO);
    switch (discriminator->yv_unaliased()->kind()) {
    case CORBA::tk_short: return extracted<CORBA::Short>(label);
    case CORBA::tk_ushort: return extracted<CORBA::UShort>(label);
    case CORBA::tk_long: return extracted<CORBA::Long>(label);
    case CORBA::tk_ulong: return extracted<CORBA::ULong>(label);
    case CORBA::tk_longlong: return extracted<CORBA::LongLong>(label);
    case CORBA::tk_ulonglong: return static_cast<CORBA::LongLong>(extracted<CORBA::ULongLong>(label));
    case CORBA::tk_boolean: {
        CORBA::Boolean b = false;
        label >>= CORBA::Any::to_boolean(b);
        return b ? 1 : 0;
    }
    case CORBA::tk_char: {
        CORBA::Char c = 0;
        label >>= CORBA::Any::to_char(c);
        return static_cast<unsigned char>(c);
    }
    case CORBA::tk_wchar: {
        CORBA::WChar c = 0;
        label >>= CORBA::Any::to_wchar(c);
        return static_cast<CORBA::ULong>(c);
    }
    default:
        break;
    }
    // An enumerator: its value in CDR.
    YV_CDR::OutputStream value;
    label.yv_write_value(value);
    YV_CDR::InputStream in(value.data(), value.size(), value.little_endian());
    return YV_TC::read_discriminator(in, discriminator);
}

bool is_default_label(const CORBA::Any& label)
{
    CORBA::Octet o = 1;
    return label.yv_type()->kind() == CORBA::tk_octet && (label >>= CORBA::Any::to_octet(o)) && o == 0;
}

} // namespace

CORBA::TypeCode_ptr TypeCodeFactory::make(CORBA::TCKind kind, const char* id, const char* name,
                                          CORBA::TypeCode_ptr content, CORBA::Short modifier,
                                          const std::vector<Member>& members)
{
    check_id_and_name(id, name);
    if (kind == CORBA::tk_union && (content == nullptr || !YV_TC::is_discriminator(content)))
        throw CORBA::BAD_PARAM(illegitimate_discriminator, CORBA::COMPLETED_NO);
    if (kind == CORBA::tk_value && content != nullptr && content->kind() != CORBA::tk_value &&
        content->kind() != CORBA::tk_null)
        throw CORBA::BAD_TYPECODE(illegitimate_member, CORBA::COMPLETED_NO);
    if (kind == CORBA::tk_value && (modifier < CORBA::VM_NONE || modifier > CORBA::VM_TRUNCATABLE))
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);

    YV_TC::GraphHolder holder;
    YV_TC::TypeCodeGraph& graph = holder.get();
    CORBA::TypeCode* tc = graph.make(kind);
    graph.set_id_and_name(tc, id, name);
    graph.set_modifier(tc, modifier);
    // Where the members lead to a placeholder for this id, they lead back
    // to the new type code.
    YV_TC::TypeCodeCopier resolve(graph, id, tc);

    std::vector<YV_TC::TypeCodeGraph::MemberSpec> specs;
    std::set<std::string> names;
    std::set<CORBA::LongLong> labels;
    CORBA::Long default_index = -1;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const Member& m = members[i];
        if (!is_identifier(m.name) || (*m.name != '\0' && kind != CORBA::tk_union && !names.insert(m.name).second))
            throw CORBA::BAD_PARAM(invalid_member_name, CORBA::COMPLETED_NO);
        YV_TC::TypeCodeGraph::MemberSpec spec{m.name, nullptr, 0, m.visibility};
        if (kind != CORBA::tk_enum) {
            check_member_type(m.type);
            spec.type = resolve.copy(m.type);
        }
        if (kind == CORBA::tk_union) {
            if (m.label != nullptr && is_default_label(*m.label)) {
                if (default_index >= 0)
                    throw CORBA::BAD_PARAM(duplicate_label, CORBA::COMPLETED_NO);
                default_index = static_cast<CORBA::Long>(i);
            } else {
                if (m.label == nullptr)
                    throw CORBA::BAD_PARAM(incompatible_label, CORBA::COMPLETED_NO);
                spec.label = label_value(*m.label, content);
                if (!labels.insert(YV_TC::normalise(content, spec.label)).second)
                    throw CORBA::BAD_PARAM(duplicate_label, CORBA::COMPLETED_NO);
            }
        }
        if (kind == CORBA::tk_value && spec.visibility != CORBA::Short(0) && spec.visibility != CORBA::Short(1))
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
        specs.push_back(spec);
    }
    if ((kind == CORBA::tk_union || kind == CORBA::tk_enum) && specs.empty())
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    graph.set_members(tc, specs);
    graph.set_default_index(tc, default_index);
    if (content != nullptr && content->kind() != CORBA::tk_null)
        graph.set_content(tc, resolve.copy(content));
    return holder.hand_over(tc);
}

CORBA::TypeCode_ptr TypeCodeFactory::make_interface(CORBA::TCKind kind, const char* id, const char* name)
{
    check_id_and_name(id, name);
    YV_TC::GraphHolder holder;
    CORBA::TypeCode* tc = holder.get().make(kind);
    holder.get().set_id_and_name(tc, id, name);
    return holder.hand_over(tc);
}

CORBA::TypeCode_ptr TypeCodeFactory::make_alias(CORBA::TCKind kind, const char* id, const char* name,
                                                CORBA::TypeCode_ptr content)
{
    check_id_and_name(id, name);
    check_member_type(content);
    YV_TC::GraphHolder holder;
    CORBA::TypeCode* tc = holder.get().make(kind);
    holder.get().set_id_and_name(tc, id, name);
    holder.get().set_content(tc, content);
    return holder.hand_over(tc);
}

CORBA::TypeCode_ptr TypeCodeFactory::make_bounded(CORBA::TCKind kind, CORBA::ULong bound, CORBA::TypeCode_ptr element)
{
    if (kind == CORBA::tk_string && bound == 0)
        return CORBA::_tc_string;
    if (kind == CORBA::tk_wstring && bound == 0)
        return CORBA::_tc_wstring;
    if (kind == CORBA::tk_array && bound == 0)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    if (kind == CORBA::tk_sequence || kind == CORBA::tk_array)
        check_member_type(element);
    YV_TC::GraphHolder holder;
    CORBA::TypeCode* tc = holder.get().make(kind);
    holder.get().set_length(tc, bound);
    if (element != nullptr)
        holder.get().set_content(tc, element);
    return holder.hand_over(tc);
}

CORBA::TypeCode_ptr TypeCodeFactory::make_fixed(CORBA::UShort digits, CORBA::Short scale)
{
    if (digits == 0 || digits > 31 || scale < 0 || scale > static_cast<CORBA::Short>(digits))
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    YV_TC::GraphHolder holder;
    CORBA::TypeCode* tc = holder.get().make(CORBA::tk_fixed);
    holder.get().set_fixed(tc, digits, scale);
    return holder.hand_over(tc);
}

CORBA::TypeCode_ptr TypeCodeFactory::make_recursive(const char* id)
{
    if (id == nullptr || std::strchr(id, ':') == nullptr)
        throw CORBA::BAD_PARAM(invalid_repository_id, CORBA::COMPLETED_NO);
    YV_TC::GraphHolder holder;
    return holder.hand_over(holder.get().make_placeholder(id));
}

} // namespace YV_Cxx

namespace CORBA {

TypeCode_ptr ORB::create_alias_tc(const char* id, const char* name, TypeCode_ptr original_type)
{
    return YV_Cxx::TypeCodeFactory::make_alias(tk_alias, id, name, original_type);
}

TypeCode_ptr ORB::create_value_box_tc(const char* id, const char* name, TypeCode_ptr boxed_type)
{
    return YV_Cxx::TypeCodeFactory::make_alias(tk_value_box, id, name, boxed_type);
}

TypeCode_ptr ORB::create_interface_tc(const char* id, const char* name)
{
    return YV_Cxx::TypeCodeFactory::make_interface(tk_objref, id, name);
}

TypeCode_ptr ORB::create_native_tc(const char* id, const char* name)
{
    return YV_Cxx::TypeCodeFactory::make_interface(tk_native, id, name);
}

TypeCode_ptr ORB::create_abstract_interface_tc(const char* id, const char* name)
{
    return YV_Cxx::TypeCodeFactory::make_interface(tk_abstract_interface, id, name);
}

TypeCode_ptr ORB::create_local_interface_tc(const char* id, const char* name)
{
    return YV_Cxx::TypeCodeFactory::make_interface(tk_local_interface, id, name);
}

TypeCode_ptr ORB::create_string_tc(ULong bound)
{
    return YV_Cxx::TypeCodeFactory::make_bounded(tk_string, bound, nullptr);
}

TypeCode_ptr ORB::create_wstring_tc(ULong bound)
{
    return YV_Cxx::TypeCodeFactory::make_bounded(tk_wstring, bound, nullptr);
}

TypeCode_ptr ORB::create_sequence_tc(ULong bound, TypeCode_ptr element_type)
{
    return YV_Cxx::TypeCodeFactory::make_bounded(tk_sequence, bound, element_type);
}

TypeCode_ptr ORB::create_array_tc(ULong length, TypeCode_ptr element_type)
{
    return YV_Cxx::TypeCodeFactory::make_bounded(tk_array, length, element_type);
}

TypeCode_ptr ORB::create_fixed_tc(UShort digits, Short scale)
{
    return YV_Cxx::TypeCodeFactory::make_fixed(digits, scale);
}

TypeCode_ptr ORB::create_recursive_tc(const char* id)
{
    return YV_Cxx::TypeCodeFactory::make_recursive(id);
}

} // namespace CORBA
