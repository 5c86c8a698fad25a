#include "ValueTranscoder.h"

#include "Discriminator.h"
#include "TypeCodeValue.h"
#include "omg/CORBA.hh"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/YV_Cxx/StringVar.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <unordered_set>
#include <vector>

namespace YV_TC {

namespace {

using YV_CDR::InputStream;

std::size_t saturating_add(std::size_t a, std::size_t b)
{
    return a > std::numeric_limits<std::size_t>::max() - b ? std::numeric_limits<std::size_t>::max() : a + b;
}

std::size_t saturating_mul(std::size_t a, std::size_t b)
{
    if (a != 0 && b > std::numeric_limits<std::size_t>::max() / a)
        return std::numeric_limits<std::size_t>::max();
    return a * b;
}

std::size_t min_size_of(CORBA::TypeCode_ptr tc, unsigned depth)
{
    // Deep enough for any real type; below, 0 is still a lower bound.
    if (tc == nullptr || depth > 32)
        return 0;
    switch (tc->kind()) {
    case CORBA::tk_boolean:
    case CORBA::tk_char:
    case CORBA::tk_octet:
    case CORBA::tk_wchar:
        return 1;
    case CORBA::tk_short:
    case CORBA::tk_ushort:
        return 2;
    case CORBA::tk_long:
    case CORBA::tk_ulong:
    case CORBA::tk_float:
    case CORBA::tk_enum:
    case CORBA::tk_any:
    case CORBA::tk_TypeCode:
    case CORBA::tk_Principal:
    case CORBA::tk_sequence:
    case CORBA::tk_wstring:
    case CORBA::tk_value:
    case CORBA::tk_value_box:
        return 4;
    case CORBA::tk_string:
        return 5;
    case CORBA::tk_longlong:
    case CORBA::tk_ulonglong:
    case CORBA::tk_double:
    case CORBA::tk_objref:
        return 8;
    case CORBA::tk_longdouble:
        return 16;
    case CORBA::tk_abstract_interface:
        return 1;
    case CORBA::tk_fixed:
        return (tc->yv_digits() + 2u) / 2u;
    case CORBA::tk_alias:
        return min_size_of(tc->yv_content(), depth + 1);
    case CORBA::tk_array:
        return saturating_mul(tc->yv_length(), min_size_of(tc->yv_content(), depth + 1));
    case CORBA::tk_union:
        return min_size_of(tc->yv_content(), depth + 1);
    case CORBA::tk_struct:
    case CORBA::tk_except: {
        std::size_t n = 0;
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
            n = saturating_add(n, min_size_of(tc->yv_member_type(i), depth + 1));
        return n;
    }
    default:
        return 0;
    }
}

// The size of a primitive that may travel as a block, 0 for the others.
std::size_t block_size(CORBA::TCKind k)
{
    switch (k) {
    case CORBA::tk_char:
    case CORBA::tk_octet:
        return 1;
    case CORBA::tk_short:
    case CORBA::tk_ushort:
        return 2;
    case CORBA::tk_long:
    case CORBA::tk_ulong:
    case CORBA::tk_float:
        return 4;
    case CORBA::tk_longlong:
    case CORBA::tk_ulonglong:
    case CORBA::tk_double:
        return 8;
    default:
        return 0;
    }
}

} // namespace

std::size_t ValueTranscoder::min_size(CORBA::TypeCode_ptr tc)
{
    return min_size_of(tc, 0);
}

bool ValueTranscoder::may_hold_values(CORBA::TypeCode_ptr tc)
{
    // Recursive types are cycles of type codes: each is looked at once.
    std::unordered_set<CORBA::TypeCode_ptr> seen;
    std::vector<CORBA::TypeCode_ptr> pending{tc};
    while (!pending.empty()) {
        const CORBA::TypeCode_ptr t = pending.back();
        pending.pop_back();
        if (t == nullptr || !seen.insert(t).second)
            continue;
        switch (t->kind()) {
        case CORBA::tk_value:
        case CORBA::tk_value_box:
        case CORBA::tk_abstract_interface:
        case CORBA::tk_any:
            return true;
        case CORBA::tk_alias:
        case CORBA::tk_sequence:
        case CORBA::tk_array:
            pending.push_back(t->yv_content());
            break;
        case CORBA::tk_struct:
        case CORBA::tk_except:
        case CORBA::tk_union:
            for (CORBA::ULong i = 0; i < t->yv_member_count(); ++i)
                pending.push_back(t->yv_member_type(i));
            break;
        default:
            break;
        }
    }
    return false;
}

void ValueTranscoder::primitives(std::size_t size, std::size_t n)
{
    if (n == 0)
        return;
    m_in.align(size);
    if (n > m_in.remaining() / size)
        InputStream::fail(YV_CDR::minor_end_of_data);
    const unsigned char* p = m_in.read_octets(n * size);
    if (m_out == nullptr)
        return;
    unsigned char* q = m_out->grow_aligned(n * size, size);
    if (size == 1 || m_in.little_endian() == m_out->little_endian()) {
        std::memcpy(q, p, n * size);
        return;
    }
    for (std::size_t i = 0; i < n; ++i)
        std::reverse_copy(p + i * size, p + (i + 1) * size, q + i * size);
}

void ValueTranscoder::booleans(std::size_t n)
{
    if (n > m_in.remaining())
        InputStream::fail(YV_CDR::minor_end_of_data);
    const unsigned char* p = m_in.read_octets(n);
    for (std::size_t i = 0; i < n; ++i)
        if (p[i] > 1)
            InputStream::fail(YV_CDR::minor_bad_boolean);
    if (m_out != nullptr)
        m_out->write_octet_array(p, n);
}

void ValueTranscoder::long_double()
{
    m_in.align(8);
    const unsigned char* p = m_in.read_octets(16);
    if (m_out == nullptr)
        return;
    unsigned char* q = m_out->grow_aligned(16, 8);
    if (m_in.little_endian() == m_out->little_endian())
        std::memcpy(q, p, 16);
    else
        std::reverse_copy(p, p + 16, q);
}

void ValueTranscoder::string(CORBA::ULong bound)
{
    const CORBA::ULong length = m_in.read_ulong();
    if (length == 0 || length > m_in.remaining())
        InputStream::fail(length == 0 ? YV_CDR::minor_bad_string : YV_CDR::minor_bad_length);
    const unsigned char* p = m_in.read_octets(length);
    if (p[length - 1] != 0)
        InputStream::fail(YV_CDR::minor_bad_string);
    if (bound != 0 && length - 1 > bound)
        InputStream::fail(YV_CDR::minor_bound);
    if (m_out != nullptr) {
        m_out->write_ulong(length);
        m_out->write_octet_array(p, length);
    }
}

void ValueTranscoder::wide_string(CORBA::ULong bound)
{
    YV_Cxx::StringVar<CORBA::WChar> s = m_in.read_wstring(bound);
    if (m_out != nullptr)
        m_out->write_wstring(s.in());
}

void ValueTranscoder::octet_sequence()
{
    const CORBA::ULong n = m_in.read_count(1);
    if (m_out != nullptr)
        m_out->write_ulong(n);
    primitives(1, n);
}

void ValueTranscoder::fixed(CORBA::TypeCode_ptr tc)
{
    const std::size_t n = (tc->yv_digits() + 2u) / 2u;
    const unsigned char* p = m_in.read_octets(n);
    for (std::size_t i = 0; i < n; ++i) {
        const unsigned hi = p[i] >> 4;
        const unsigned lo = p[i] & 0xf;
        const bool last = i + 1 == n;
        if (hi > 9 || (!last && lo > 9) || (last && lo != 0xc && lo != 0xd && lo != 0xf))
            InputStream::fail(YV_CDR::minor_bad_fixed);
    }
    if (m_out != nullptr)
        m_out->write_octet_array(p, n);
}

void ValueTranscoder::object_reference()
{
    string(0);
    const CORBA::ULong profiles = m_in.read_count(8);
    if (m_out != nullptr)
        m_out->write_ulong(profiles);
    for (CORBA::ULong i = 0; i < profiles; ++i) {
        primitives(4, 1);
        octet_sequence();
    }
}

void ValueTranscoder::union_value(CORBA::TypeCode_ptr tc, unsigned depth)
{
    const CORBA::TypeCode_ptr disc = tc->yv_content();
    const CORBA::LongLong d = read_discriminator(m_in, disc);
    if (m_out != nullptr)
        write_discriminator(*m_out, disc, d);
    const CORBA::Long member = select_member(tc, d);
    if (member >= 0)
        walk(tc->yv_member_type(static_cast<CORBA::ULong>(member)), depth + 1);
}

void ValueTranscoder::elements(CORBA::TypeCode_ptr element, CORBA::ULong n, unsigned depth)
{
    const CORBA::TypeCode_ptr e = element->yv_unaliased();
    if (const std::size_t size = block_size(e->kind())) {
        primitives(size, n);
        return;
    }
    if (e->kind() == CORBA::tk_boolean) {
        booleans(n);
        return;
    }
    for (CORBA::ULong i = 0; i < n; ++i)
        walk(element, depth + 1);
}

void ValueTranscoder::value_type(CORBA::TypeCode_ptr tc)
{
    if (m_collect != nullptr) {
        m_collect->emplace_back(TypeCodeValue::read(m_in, tc));
        return;
    }
    if (m_emit != nullptr) {
        if (m_out == nullptr || m_next >= m_emit->size())
            InputStream::fail(YV_CDR::minor_bad_length);
        YV_Cxx::write_value(*m_out, (*m_emit)[m_next++].in());
        return;
    }
    YV_Cxx::Value_var<CORBA::ValueBase> v = TypeCodeValue::read(m_in, tc);
    if (m_out != nullptr)
        YV_Cxx::write_value(*m_out, v.in());
    // What it reaches is written: a later indirection to it writes one too.
    TypeCodeValue::cut(v.in());
}

void ValueTranscoder::state(CORBA::TypeCode_ptr tc) { state_of(tc->yv_unaliased(), 0); }

void ValueTranscoder::state_of(CORBA::TypeCode_ptr tc, unsigned depth)
{
    if (depth > InputStream::max_nesting)
        InputStream::fail(YV_CDR::minor_nesting);
    if (tc->kind() == CORBA::tk_value_box) {
        walk(tc->yv_content(), depth + 1);
        return;
    }
    const CORBA::TypeCode_ptr base = tc->yv_content();
    if (base != nullptr && base->yv_unaliased()->kind() == CORBA::tk_value)
        state_of(base->yv_unaliased(), depth + 1);
    for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
        walk(tc->yv_member_type(i), depth + 1);
}

void ValueTranscoder::walk(CORBA::TypeCode_ptr tc, unsigned depth)
{
    if (depth > InputStream::max_nesting)
        InputStream::fail(YV_CDR::minor_nesting);
    if (tc == nullptr)
        InputStream::fail(YV_CDR::minor_bad_typecode);
    switch (tc->kind()) {
    case CORBA::tk_null:
    case CORBA::tk_void:
        return;
    case CORBA::tk_boolean:
        booleans(1);
        return;
    case CORBA::tk_wchar: {
        const CORBA::WChar c = m_in.read_wchar();
        if (m_out != nullptr)
            m_out->write_wchar(c);
        return;
    }
    case CORBA::tk_longdouble:
        long_double();
        return;
    case CORBA::tk_string:
        string(tc->yv_length());
        return;
    case CORBA::tk_wstring:
        wide_string(tc->yv_length());
        return;
    case CORBA::tk_fixed:
        fixed(tc);
        return;
    case CORBA::tk_enum: {
        const CORBA::ULong v = m_in.read_ulong();
        if (v >= tc->yv_member_count())
            InputStream::fail(YV_CDR::minor_bad_enum);
        if (m_out != nullptr)
            m_out->write_ulong(v);
        return;
    }
    case CORBA::tk_any: {
        const CORBA::TypeCode_var inner =
            CORBA::TypeCode::_yv_read(m_in);
        if (m_out != nullptr)
            CORBA::TypeCode::_yv_write(*m_out, inner.in());
        walk(inner.in(), depth + 1);
        return;
    }
    case CORBA::tk_TypeCode: {
        const CORBA::TypeCode_var t =
            CORBA::TypeCode::_yv_read(m_in);
        if (m_out != nullptr)
            CORBA::TypeCode::_yv_write(*m_out, t.in());
        return;
    }
    case CORBA::tk_Principal:
        octet_sequence();
        return;
    case CORBA::tk_objref:
        object_reference();
        return;
    case CORBA::tk_struct:
    case CORBA::tk_except:
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
            walk(tc->yv_member_type(i), depth + 1);
        return;
    case CORBA::tk_union:
        union_value(tc, depth);
        return;
    case CORBA::tk_sequence: {
        const CORBA::ULong n = m_in.read_count(min_size(tc->yv_content()));
        if (tc->yv_length() != 0 && n > tc->yv_length())
            InputStream::fail(YV_CDR::minor_bound);
        if (m_out != nullptr)
            m_out->write_ulong(n);
        elements(tc->yv_content(), n, depth);
        return;
    }
    case CORBA::tk_array: {
        const std::size_t least = min_size(tc->yv_content());
        if (least != 0 && tc->yv_length() > m_in.remaining() / least)
            InputStream::fail(YV_CDR::minor_bad_length);
        elements(tc->yv_content(), tc->yv_length(), depth);
        return;
    }
    case CORBA::tk_alias:
        walk(tc->yv_content(), depth + 1);
        return;
    case CORBA::tk_value:
    case CORBA::tk_value_box:
        value_type(tc);
        return;
    case CORBA::tk_abstract_interface: {
        // An object reference (true) or a value.
        const CORBA::Boolean is_object = m_in.read_boolean();
        if (m_out != nullptr)
            m_out->write_boolean(is_object);
        if (is_object)
            object_reference();
        else
            value_type(tc);
        return;
    }
    default:
        if (const std::size_t size = block_size(tc->kind())) {
            primitives(size, 1);
            return;
        }
        InputStream::fail(YV_CDR::minor_bad_typecode);
    }
}

} // namespace YV_TC
