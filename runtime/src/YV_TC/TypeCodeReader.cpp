#include "TypeCodeReader.h"

#include "Discriminator.h"
#include "TypeCodeKinds.h"
#include "zantic_sys/CORBA/String_var.h"

#include <algorithm>
#include <string>

namespace YV_TC {

namespace {

const CORBA::ULong indirection = 0xffffffff;

[[noreturn]] void malformed()
{
    YV_CDR::InputStream::fail(YV_CDR::minor_bad_typecode);
}

// The static type code of a kind without parameters.
CORBA::TypeCode_ptr simple_tc(CORBA::TCKind kind)
{
    switch (kind) {
    case CORBA::tk_null: return CORBA::_tc_null;
    case CORBA::tk_void: return CORBA::_tc_void;
    case CORBA::tk_short: return CORBA::_tc_short;
    case CORBA::tk_long: return CORBA::_tc_long;
    case CORBA::tk_ushort: return CORBA::_tc_ushort;
    case CORBA::tk_ulong: return CORBA::_tc_ulong;
    case CORBA::tk_float: return CORBA::_tc_float;
    case CORBA::tk_double: return CORBA::_tc_double;
    case CORBA::tk_boolean: return CORBA::_tc_boolean;
    case CORBA::tk_char: return CORBA::_tc_char;
    case CORBA::tk_octet: return CORBA::_tc_octet;
    case CORBA::tk_any: return CORBA::_tc_any;
    case CORBA::tk_TypeCode: return CORBA::_tc_TypeCode;
    case CORBA::tk_Principal: return CORBA::_tc_Principal;
    case CORBA::tk_longlong: return CORBA::_tc_longlong;
    case CORBA::tk_ulonglong: return CORBA::_tc_ulonglong;
    case CORBA::tk_longdouble: return CORBA::_tc_longdouble;
    default: return CORBA::_tc_wchar;
    }
}

// A type that values may have as members, elements or aliased types.
CORBA::TypeCode_ptr usable(CORBA::TypeCode_ptr tc)
{
    const CORBA::TCKind k = tc->kind();
    if (k == CORBA::tk_null || k == CORBA::tk_void || k == CORBA::tk_except)
        malformed();
    return tc;
}

// The least octets a member's CDR form takes: a name (a length and a NUL)
// and a type code kind.
const std::size_t min_member_size = 9;
const std::size_t min_enumerator_size = 5;

} // namespace

CORBA::TypeCode_ptr TypeCodeReader::read(YV_CDR::InputStream& in)
{
    return m_graph.hand_over(read_tc(in, 0));
}

void TypeCodeReader::remember(const unsigned char* at, CORBA::TypeCode_ptr tc, bool complete)
{
    m_seen.push_back({at, tc, complete});
}

CORBA::TypeCode_ptr TypeCodeReader::follow(YV_CDR::InputStream& in)
{
    const unsigned char* at = in.cursor();
    const CORBA::Long offset = in.read_long();
    if (offset >= 0)
        malformed();
    const unsigned char* target = at + offset;
    auto found = std::find_if(m_seen.begin(), m_seen.end(), [target](const Seen& s) { return s.at == target; });
    if (found == m_seen.end())
        malformed();
    if (!found->complete && !may_recur(found->tc->kind()))
        malformed();
    return found->tc;
}

CORBA::TypeCode_ptr TypeCodeReader::read_tc(YV_CDR::InputStream& in, unsigned depth)
{
    if (depth > YV_CDR::InputStream::max_nesting)
        YV_CDR::InputStream::fail(YV_CDR::minor_nesting);
    in.align(4);
    const unsigned char* at = in.cursor();
    const CORBA::ULong raw = in.read_ulong();
    if (raw == indirection)
        return follow(in);
    if (raw > CORBA::tk_local_interface)
        malformed();
    const CORBA::TCKind kind = static_cast<CORBA::TCKind>(raw);
    if (is_simple(kind)) {
        const CORBA::TypeCode_ptr tc = simple_tc(kind);
        remember(at, tc, true);
        return tc;
    }
    TypeCodeGraph& graph = m_graph.get();
    if (kind == CORBA::tk_string || kind == CORBA::tk_wstring) {
        const CORBA::ULong bound = in.read_ulong();
        CORBA::TypeCode_ptr tc = kind == CORBA::tk_string ? CORBA::_tc_string : CORBA::_tc_wstring;
        if (bound != 0) {
            CORBA::TypeCode* made = graph.make(kind);
            graph.set_length(made, bound);
            tc = made;
        }
        remember(at, tc, true);
        return tc;
    }
    if (kind == CORBA::tk_fixed) {
        const CORBA::UShort digits = in.read_ushort();
        const CORBA::Short scale = in.read_short();
        if (digits == 0 || digits > 31 || scale < 0 || scale > static_cast<CORBA::Short>(digits))
            malformed();
        CORBA::TypeCode* made = graph.make(kind);
        graph.set_fixed(made, digits, scale);
        remember(at, made, true);
        return made;
    }
    YV_CDR::InputStream params = in.encapsulation();
    CORBA::TypeCode* made = graph.make(kind);
    const std::size_t index = m_seen.size();
    remember(at, made, false);
    read_parameters(params, made, depth + 1);
    m_seen[index].complete = true;
    return made;
}

void TypeCodeReader::read_id_and_name(YV_CDR::InputStream& in, CORBA::TypeCode* tc)
{
    CORBA::String_var id = in.read_string();
    CORBA::String_var name = in.read_string();
    m_graph.get().set_id_and_name(tc, id.in(), name.in());
}

void TypeCodeReader::read_parameters(YV_CDR::InputStream& in, CORBA::TypeCode* tc, unsigned depth)
{
    TypeCodeGraph& graph = m_graph.get();
    std::vector<TypeCodeGraph::MemberSpec> members;
    switch (tc->kind()) {
    case CORBA::tk_objref:
    case CORBA::tk_native:
    case CORBA::tk_abstract_interface:
    case CORBA::tk_local_interface:
        read_id_and_name(in, tc);
        return;
    case CORBA::tk_struct:
    case CORBA::tk_except: {
        read_id_and_name(in, tc);
        const CORBA::ULong count = in.read_count(min_member_size);
        if (count == 0 && tc->kind() == CORBA::tk_struct)
            malformed();
        for (CORBA::ULong i = 0; i < count; ++i) {
            CORBA::String_var name = in.read_string();
            members.push_back({name.in(), usable(read_tc(in, depth)), 0, 0});
        }
        graph.set_members(tc, members);
        return;
    }
    case CORBA::tk_union: {
        read_id_and_name(in, tc);
        const CORBA::TypeCode_ptr disc = read_tc(in, depth);
        if (!is_discriminator(disc))
            malformed();
        graph.set_content(tc, disc);
        // No default member is -1; omniORB writes other negative values too.
        const CORBA::Long default_index = std::max<CORBA::Long>(in.read_long(), -1);
        const CORBA::ULong count = in.read_count(min_member_size);
        if (count == 0 || default_index >= static_cast<CORBA::Long>(count))
            malformed();
        graph.set_default_index(tc, default_index);
        for (CORBA::ULong i = 0; i < count; ++i) {
            CORBA::LongLong label = read_discriminator(in, disc);
            if (static_cast<CORBA::Long>(i) == default_index)
                label = 0;
            CORBA::String_var name = in.read_string();
            members.push_back({name.in(), usable(read_tc(in, depth)), label, 0});
        }
        graph.set_members(tc, members);
        return;
    }
    case CORBA::tk_enum: {
        read_id_and_name(in, tc);
        const CORBA::ULong count = in.read_count(min_enumerator_size);
        if (count == 0)
            malformed();
        for (CORBA::ULong i = 0; i < count; ++i) {
            CORBA::String_var name = in.read_string();
            members.push_back({name.in(), nullptr, 0, 0});
        }
        graph.set_members(tc, members);
        return;
    }
    case CORBA::tk_sequence:
    case CORBA::tk_array: {
        const CORBA::TypeCode_ptr element = usable(read_tc(in, depth));
        graph.set_content(tc, element);
        graph.set_length(tc, in.read_ulong());
        if (tc->kind() == CORBA::tk_array && tc->yv_length() == 0)
            malformed();
        return;
    }
    case CORBA::tk_alias:
    case CORBA::tk_value_box:
        read_id_and_name(in, tc);
        graph.set_content(tc, usable(read_tc(in, depth)));
        return;
    case CORBA::tk_value: {
        read_id_and_name(in, tc);
        const CORBA::Short modifier = in.read_short();
        if (modifier < CORBA::VM_NONE || modifier > CORBA::VM_TRUNCATABLE)
            malformed();
        graph.set_modifier(tc, modifier);
        const CORBA::TypeCode_ptr base = read_tc(in, depth);
        if (base->kind() != CORBA::tk_null) {
            if (base->kind() != CORBA::tk_value)
                malformed();
            graph.set_content(tc, base);
        }
        const CORBA::ULong count = in.read_count(min_member_size);
        for (CORBA::ULong i = 0; i < count; ++i) {
            CORBA::String_var name = in.read_string();
            const CORBA::TypeCode_ptr type = usable(read_tc(in, depth));
            const CORBA::Short visibility = in.read_short();
            if (visibility != 0 && visibility != 1)
                malformed();
            members.push_back({name.in(), type, 0, visibility});
        }
        graph.set_members(tc, members);
        return;
    }
    default:
        malformed();
    }
}

} // namespace YV_TC
