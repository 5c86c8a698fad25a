#include "ValueComparer.h"

#include "Discriminator.h"
#include "TypeCodeValue.h"
#include "ValueTranscoder.h"
#include "omg/CORBA.hh"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include <algorithm>
#include <cstring>
#include <cwchar>

namespace YV_TC {

namespace {

using YV_CDR::InputStream;

// The octets of a string (with its NUL), checked.
const unsigned char* string_octets(InputStream& in, CORBA::ULong& length)
{
    length = in.read_ulong();
    if (length == 0 || length > in.remaining())
        InputStream::fail(length == 0 ? YV_CDR::minor_bad_string : YV_CDR::minor_bad_length);
    const unsigned char* p = in.read_octets(length);
    if (p[length - 1] != 0)
        InputStream::fail(YV_CDR::minor_bad_string);
    return p;
}

// The value of a packed decimal: its sign and its digits without leading
// zeros, so that equal values compare equal.
std::string decimal(const unsigned char* p, std::size_t n)
{
    std::string digits;
    for (std::size_t i = 0; i < n; ++i) {
        const unsigned hi = p[i] >> 4;
        const unsigned lo = p[i] & 0xf;
        if (hi > 9 || (i + 1 < n && lo > 9))
            InputStream::fail(YV_CDR::minor_bad_fixed);
        digits += static_cast<char>('0' + hi);
        if (i + 1 < n)
            digits += static_cast<char>('0' + lo);
    }
    const unsigned sign = p[n - 1] & 0xf;
    if (sign != 0xc && sign != 0xd && sign != 0xf)
        InputStream::fail(YV_CDR::minor_bad_fixed);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty())
        return "0";
    return (sign == 0xd ? "-" : "+") + digits;
}

} // namespace

bool ValueComparer::strings()
{
    CORBA::ULong la = 0;
    CORBA::ULong lb = 0;
    const unsigned char* a = string_octets(m_a, la);
    const unsigned char* b = string_octets(m_b, lb);
    return la == lb && std::memcmp(a, b, la) == 0;
}

bool ValueComparer::octet_sequences()
{
    const CORBA::ULong na = m_a.read_count(1);
    const CORBA::ULong nb = m_b.read_count(1);
    if (na != nb)
        return false;
    return std::memcmp(m_a.read_octets(na), m_b.read_octets(nb), na) == 0;
}

bool ValueComparer::object_references()
{
    if (!strings())
        return false;
    const CORBA::ULong na = m_a.read_count(8);
    const CORBA::ULong nb = m_b.read_count(8);
    if (na != nb)
        return false;
    for (CORBA::ULong i = 0; i < na; ++i)
        if (m_a.read_ulong() != m_b.read_ulong() || !octet_sequences())
            return false;
    return true;
}

bool ValueComparer::fixed(CORBA::TypeCode_ptr tc)
{
    const std::size_t n = (tc->yv_digits() + 2u) / 2u;
    return decimal(m_a.read_octets(n), n) == decimal(m_b.read_octets(n), n);
}

bool ValueComparer::long_doubles()
{
    m_a.align(8);
    m_b.align(8);
    unsigned char a[16];
    unsigned char b[16];
    std::memcpy(a, m_a.read_octets(16), 16);
    std::memcpy(b, m_b.read_octets(16), 16);
    if (m_a.little_endian())
        std::reverse(a, a + 16);
    if (m_b.little_endian())
        std::reverse(b, b + 16);
    return std::memcmp(a, b, 16) == 0;
}

// Two values (with what they reach) are equal when they encode alike in
// one byte order and alignment: the encoding tells the shape of the graph
// (indirections) as well as the state.
ValueComparer::~ValueComparer()
{
    for (const auto& v : m_read)
        TypeCodeValue::cut(v.in());
}

bool ValueComparer::values(CORBA::TypeCode_ptr tc)
{
    const YV_Cxx::Value_var<CORBA::ValueBase> a = TypeCodeValue::read(m_a, tc);
    const YV_Cxx::Value_var<CORBA::ValueBase> b = TypeCodeValue::read(m_b, tc);
    YV_CDR::OutputStream ea;
    YV_CDR::OutputStream eb;
    YV_Cxx::write_value(ea, a.in());
    YV_Cxx::write_value(eb, b.in());
    m_read.push_back(a);
    m_read.push_back(b);
    return ea.size() == eb.size() && std::memcmp(ea.data(), eb.data(), ea.size()) == 0;
}

bool ValueComparer::walk(CORBA::TypeCode_ptr tc, unsigned depth)
{
    if (depth > InputStream::max_nesting)
        InputStream::fail(YV_CDR::minor_nesting);
    switch (tc->kind()) {
    case CORBA::tk_null:
    case CORBA::tk_void:
        return true;
    case CORBA::tk_boolean: return m_a.read_boolean() == m_b.read_boolean();
    case CORBA::tk_char: return m_a.read_char() == m_b.read_char();
    case CORBA::tk_octet: return m_a.read_octet() == m_b.read_octet();
    case CORBA::tk_wchar: return m_a.read_wchar() == m_b.read_wchar();
    case CORBA::tk_short:
    case CORBA::tk_ushort: return m_a.read_ushort() == m_b.read_ushort();
    case CORBA::tk_long:
    case CORBA::tk_ulong:
    case CORBA::tk_float: return m_a.read_ulong() == m_b.read_ulong();
    case CORBA::tk_longlong:
    case CORBA::tk_ulonglong:
    case CORBA::tk_double: return m_a.read_ulonglong() == m_b.read_ulonglong();
    case CORBA::tk_longdouble: return long_doubles();
    case CORBA::tk_enum: {
        const CORBA::ULong a = m_a.read_ulong();
        const CORBA::ULong b = m_b.read_ulong();
        if (a >= tc->yv_member_count() || b >= tc->yv_member_count())
            InputStream::fail(YV_CDR::minor_bad_enum);
        return a == b;
    }
    case CORBA::tk_string: return strings();
    case CORBA::tk_wstring: {
        const YV_Cxx::StringVar<CORBA::WChar> a = m_a.read_wstring(tc->yv_length());
        const YV_Cxx::StringVar<CORBA::WChar> b = m_b.read_wstring(tc->yv_length());
        return std::wcscmp(a.in(), b.in()) == 0;
    }
    case CORBA::tk_fixed: return fixed(tc);
    case CORBA::tk_any: {
        const CORBA::TypeCode_var a = CORBA::TypeCode::_yv_read(m_a);
        const CORBA::TypeCode_var b = CORBA::TypeCode::_yv_read(m_b);
        return a->equivalent(b.in()) && walk(a.in(), depth + 1);
    }
    case CORBA::tk_TypeCode: {
        const CORBA::TypeCode_var a = CORBA::TypeCode::_yv_read(m_a);
        const CORBA::TypeCode_var b = CORBA::TypeCode::_yv_read(m_b);
        return a->equal(b.in());
    }
    case CORBA::tk_Principal: return octet_sequences();
    case CORBA::tk_objref: return object_references();
    case CORBA::tk_struct:
    case CORBA::tk_except:
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i)
            if (!walk(tc->yv_member_type(i), depth + 1))
                return false;
        return true;
    case CORBA::tk_union: {
        const CORBA::TypeCode_ptr disc = tc->yv_content();
        const CORBA::LongLong a = read_discriminator(m_a, disc);
        const CORBA::LongLong b = read_discriminator(m_b, disc);
        if (normalise(disc, a) != normalise(disc, b))
            return false;
        const CORBA::Long member = select_member(tc, a);
        return member < 0 || walk(tc->yv_member_type(static_cast<CORBA::ULong>(member)), depth + 1);
    }
    case CORBA::tk_sequence: {
        const std::size_t least = ValueTranscoder::min_size(tc->yv_content());
        const CORBA::ULong na = m_a.read_count(least);
        const CORBA::ULong nb = m_b.read_count(least);
        if (na != nb)
            return false;
        for (CORBA::ULong i = 0; i < na; ++i)
            if (!walk(tc->yv_content(), depth + 1))
                return false;
        return true;
    }
    case CORBA::tk_array: {
        const std::size_t least = ValueTranscoder::min_size(tc->yv_content());
        if (least != 0 && (tc->yv_length() > m_a.remaining() / least || tc->yv_length() > m_b.remaining() / least))
            InputStream::fail(YV_CDR::minor_bad_length);
        for (CORBA::ULong i = 0; i < tc->yv_length(); ++i)
            if (!walk(tc->yv_content(), depth + 1))
                return false;
        return true;
    }
    case CORBA::tk_alias: return walk(tc->yv_content(), depth + 1);
    case CORBA::tk_value:
    case CORBA::tk_value_box:
        return values(tc);
    case CORBA::tk_abstract_interface: {
        const CORBA::Boolean a = m_a.read_boolean();
        if (a != m_b.read_boolean())
            return false;
        return a ? object_references() : values(tc);
    }
    default:
        InputStream::fail(YV_CDR::minor_bad_typecode);
    }
}

} // namespace YV_TC
