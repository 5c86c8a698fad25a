// Stand-ins for the wide-character and fixed-point codecs of the CDR
// streams, which type-code-driven code and anys call: weak definitions, so
// that the streams' own definitions take their place as soon as they exist.
// Wide characters are UTF-16 as GIOP 1.2 has them (a wchar: its octet count,
// then one big-endian code unit; a wstring: its length in octets, then the
// code units, a byte-order mark honoured); fixed-point values are packed
// decimals.
#include "zantic_sys/CORBA/Fixed.h"
#include "zantic_sys/CORBA/String_var.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cwchar>
#include <string>

namespace YV_CDR {

__attribute__((weak)) void OutputStream::write_wchar(CORBA::WChar v)
{
    write_octet(2);
    write_octet(static_cast<CORBA::Octet>((v >> 8) & 0xff));
    write_octet(static_cast<CORBA::Octet>(v & 0xff));
}

__attribute__((weak)) CORBA::WChar InputStream::read_wchar()
{
    if (read_octet() != 2)
        fail(minor_bad_wchar);
    const unsigned hi = read_octet();
    const unsigned lo = read_octet();
    return static_cast<CORBA::WChar>((hi << 8) | lo);
}

__attribute__((weak)) void OutputStream::write_wstring(const CORBA::WChar* s, CORBA::ULong bound)
{
    const std::size_t n = std::wcslen(s);
    if (bound != 0 && n > bound)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    write_ulong(static_cast<CORBA::ULong>(n * 2));
    for (std::size_t i = 0; i < n; ++i) {
        write_octet(static_cast<CORBA::Octet>((s[i] >> 8) & 0xff));
        write_octet(static_cast<CORBA::Octet>(s[i] & 0xff));
    }
}

__attribute__((weak)) CORBA::WChar* InputStream::read_wstring(CORBA::ULong bound)
{
    const CORBA::ULong n = read_ulong();
    if (n % 2 != 0 || n > remaining())
        fail(minor_bad_length);
    const unsigned char* p = read_octets(n);
    bool little = false;
    std::size_t i = 0;
    if (n >= 2 && ((p[0] == 0xff && p[1] == 0xfe) || (p[0] == 0xfe && p[1] == 0xff))) {
        little = p[0] == 0xff;
        i = 2;
    }
    std::wstring w;
    for (; i < n; i += 2)
        w += static_cast<wchar_t>(little ? (p[i] | (p[i + 1] << 8)) : ((p[i] << 8) | p[i + 1]));
    if (bound != 0 && w.size() > bound)
        fail(minor_bound);
    return CORBA::wstring_dup(w.c_str());
}

__attribute__((weak)) void OutputStream::write_fixed(const CORBA::Fixed& v, CORBA::UShort digits, CORBA::Short scale)
{
    const CORBA::String_var text = v.round(static_cast<CORBA::UShort>(scale)).to_string();
    std::string d;
    bool negative = false;
    for (const char* c = text.in(); *c != '\0'; ++c) {
        if (*c == '-')
            negative = true;
        else if (*c >= '0' && *c <= '9')
            d += *c;
    }
    if (d.size() > digits)
        throw CORBA::DATA_CONVERSION(0, CORBA::COMPLETED_NO);
    d.insert(0, digits - d.size(), '0');
    if (d.size() % 2 == 0)
        d.insert(0, 1, '0');
    std::string nibbles = d;
    for (std::size_t i = 0; i < nibbles.size(); i += 2) {
        const unsigned hi = static_cast<unsigned>(nibbles[i] - '0');
        const unsigned lo = i + 1 < nibbles.size() ? static_cast<unsigned>(nibbles[i + 1] - '0') : (negative ? 0xd : 0xc);
        write_octet(static_cast<CORBA::Octet>((hi << 4) | lo));
    }
}

__attribute__((weak)) CORBA::Fixed InputStream::read_fixed(CORBA::UShort digits, CORBA::Short scale)
{
    const std::size_t n = (digits + 2u) / 2u;
    const unsigned char* p = read_octets(n);
    std::string d;
    for (std::size_t i = 0; i < n; ++i) {
        const unsigned hi = p[i] >> 4;
        const unsigned lo = p[i] & 0xf;
        if (hi > 9 || (i + 1 < n && lo > 9))
            fail(minor_bad_fixed);
        d += static_cast<char>('0' + hi);
        if (i + 1 < n)
            d += static_cast<char>('0' + lo);
    }
    const unsigned sign = p[n - 1] & 0xf;
    if (sign != 0xc && sign != 0xd && sign != 0xf)
        fail(minor_bad_fixed);
    d.insert(d.size() - static_cast<std::size_t>(scale), ".");
    if (sign == 0xd)
        d.insert(0, "-");
    return CORBA::Fixed(d.c_str());
}

} // namespace YV_CDR
