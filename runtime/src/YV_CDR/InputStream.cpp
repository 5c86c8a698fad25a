#include "../../include/zantic_sys/YV_CDR/InputStream.h"

#include "../../include/zantic_sys/CORBA/Fixed.h"
#include "../../include/zantic_sys/CORBA/SystemException.h"
#include "../../include/zantic_sys/CORBA/string_functions.h"
#include "Utf16.h"

#include <memory>

namespace YV_CDR {

void InputStream::fail(CORBA::ULong minor) { throw CORBA::MARSHAL(minor, CORBA::COMPLETED_NO); }

const unsigned char* InputStream::take_chunked(std::size_t alignment, std::size_t n)
{
    if (!m_chunking)
        fail(minor_end_of_data);
    for (;;) {
        const std::size_t pad = (alignment - ((offset() + m_phase) & (alignment - 1))) & (alignment - 1);
        if (m_chunk_end != nullptr) {
            const std::ptrdiff_t left = m_chunk_end - m_cur;
            if (left >= 0 && static_cast<std::size_t>(left) >= pad + n) {
                const unsigned char* p = m_cur + pad;
                m_cur = p + n;
                return p;
            }
            // Only padding may lie between the value and the chunk's end.
            if (left < 0 || static_cast<std::size_t>(left) > pad)
                fail(minor_bad_length);
            m_cur = m_chunk_end;
        } else if (n == 0) {
            // Aligning between chunks waits for the chunk the next read enters.
            return m_cur;
        }
        // The next chunk's size: 4-aligned, outside every chunk.
        const std::size_t size_pad = (4 - ((offset() + m_phase) & 3)) & 3;
        if (size_pad + 4 > remaining())
            fail(minor_end_of_data);
        m_cur += size_pad;
        const CORBA::Long size = static_cast<CORBA::Long>(load<std::uint32_t>(m_cur, m_little != native_little_endian));
        m_cur += 4;
        if (size <= 0 || size >= 0x7fffff00 || static_cast<std::size_t>(size) > remaining())
            fail(minor_bad_length);
        in_chunk(m_cur + size);
    }
}

void InputStream::read_split(void* v, std::size_t n, std::size_t size)
{
    unsigned char* out = static_cast<unsigned char*>(v);
    const bool swap = m_little != native_little_endian;
    for (std::size_t i = 0; i < n; ++i, out += size) {
        const unsigned char* p = take_chunked(size, size);
        if (size == 1) {
            *out = *p;
        } else if (size == 2) {
            const std::uint16_t bits = load<std::uint16_t>(p, swap);
            std::memcpy(out, &bits, size);
        } else if (size == 4) {
            const std::uint32_t bits = load<std::uint32_t>(p, swap);
            std::memcpy(out, &bits, size);
        } else {
            const std::uint64_t bits = load<std::uint64_t>(p, swap);
            std::memcpy(out, &bits, size);
        }
    }
}

void InputStream::read_boolean_array(CORBA::Boolean* v, std::size_t n)
{
    if (m_chunking && !fits(n)) {
        for (std::size_t i = 0; i < n; ++i)
            v[i] = read_boolean();
        return;
    }
    const unsigned char* p = take(n);
    for (std::size_t i = 0; i < n; ++i) {
        if (p[i] > 1)
            fail(minor_bad_boolean);
        v[i] = p[i] == 1;
    }
}

char* InputStream::read_string(CORBA::ULong bound)
{
    const CORBA::ULong length = read_ulong();
    if (length == 0)
        fail(minor_bad_string);
    if (length > remaining())
        fail(minor_bad_length);
    if (bound != 0 && length - 1 > bound)
        fail(minor_bound);
    std::unique_ptr<char[], void (*)(char*)> s(CORBA::string_alloc(length - 1), CORBA::string_free);
    // The characters may lie in several chunks of a chunked value.
    read_octet_array(reinterpret_cast<CORBA::Octet*>(s.get()), length);
    if (s[length - 1] != 0)
        fail(minor_bad_string);
    return s.release();
}

CORBA::LongDouble InputStream::read_longdouble()
{
    align(8);
    const unsigned char* p = take(16);
    const bool swap = m_little != native_little_endian;
    const std::uint64_t first = load<std::uint64_t>(p, swap);
    const std::uint64_t second = load<std::uint64_t>(p + 8, swap);
    const std::uint64_t low = m_little ? first : second;
    const std::uint64_t high = m_little ? second : first;
    std::uint64_t half[2];
    half[native_little_endian ? 0 : 1] = low;
    half[native_little_endian ? 1 : 0] = high;
    __float128 q;
    std::memcpy(&q, half, sizeof q);
    return static_cast<CORBA::LongDouble>(q);
}

namespace {

std::uint32_t load_be16(const unsigned char* p) { return static_cast<std::uint32_t>(p[0] << 8 | p[1]); }
std::uint32_t load_le16(const unsigned char* p) { return static_cast<std::uint32_t>(p[1] << 8 | p[0]); }

// Decodes the code units at `p` (`units` of them, big- or little-endian)
// into `to`; answers the number of characters, or -1 for a lone surrogate
// or a NUL.
long decode_units(const unsigned char* p, std::size_t units, bool little, CORBA::WChar* to)
{
    long n = 0;
    for (std::size_t i = 0; i < units; ++i) {
        std::uint32_t u = little ? load_le16(p + 2 * i) : load_be16(p + 2 * i);
        if (u == 0 || utf16::is_low_surrogate(u))
            return -1;
        if (utf16::is_high_surrogate(u)) {
            if (++i == units)
                return -1;
            const std::uint32_t low = little ? load_le16(p + 2 * i) : load_be16(p + 2 * i);
            if (!utf16::is_low_surrogate(low))
                return -1;
            u = utf16::join(u, low);
        }
        to[n++] = static_cast<CORBA::WChar>(u);
    }
    return n;
}

// A byte-order mark at `p` (two octets): sets `little` and answers true.
bool byte_order_mark(const unsigned char* p, bool& little)
{
    const std::uint32_t u = load_be16(p);
    if (u == utf16::byte_order_mark)
        little = false;
    else if (u == utf16::swapped_byte_order_mark)
        little = true;
    else
        return false;
    return true;
}

} // namespace

CORBA::WChar InputStream::read_wchar()
{
    if (m_giop_minor == 0)
        fail(minor_bad_wchar);
    if (m_giop_minor == 1) {
        const std::uint32_t u = read_ushort();
        if (utf16::is_surrogate(u))
            fail(minor_bad_wchar);
        return static_cast<CORBA::WChar>(u);
    }
    const std::size_t octets = read_octet();
    if (octets == 0 || octets % 2 != 0 || octets > 6)
        fail(minor_bad_wchar);
    const unsigned char* p = take(octets);
    bool little = false;
    std::size_t units = octets / 2;
    if (units > 1 && byte_order_mark(p, little)) {
        p += 2;
        --units;
    }
    CORBA::WChar c[3];
    // A NUL character travels as a wchar (though not inside a wstring).
    if (units == 1 && load_be16(p) == 0)
        return 0;
    if (decode_units(p, units, little, c) != 1)
        fail(minor_bad_wchar);
    return c[0];
}

CORBA::WChar* InputStream::read_wstring(CORBA::ULong bound)
{
    if (m_giop_minor == 0)
        fail(minor_bad_wchar);
    const CORBA::ULong length = read_ulong();
    std::size_t units;
    bool little = false;
    const unsigned char* p;
    if (m_giop_minor == 1) {
        // Code units including the terminating NUL, in the stream's order.
        if (length == 0)
            fail(minor_bad_string);
        if (length > remaining() / 2)
            fail(minor_bad_length);
        p = take(2 * static_cast<std::size_t>(length));
        units = length - 1;
        if (p[2 * units] != 0 || p[2 * units + 1] != 0)
            fail(minor_bad_string);
        little = m_little;
    } else {
        // Octets, no terminator, big-endian unless a byte-order mark says
        // otherwise.
        if (length % 2 != 0 || length > remaining())
            fail(minor_bad_length);
        p = take(length);
        units = length / 2;
        if (units != 0 && byte_order_mark(p, little)) {
            p += 2;
            --units;
        }
    }
    std::unique_ptr<CORBA::WChar[], void (*)(CORBA::WChar*)> s(CORBA::wstring_alloc(static_cast<CORBA::ULong>(units)),
                                                              CORBA::wstring_free);
    const long n = decode_units(p, units, little, s.get());
    if (n < 0)
        fail(minor_bad_wchar);
    if (bound != 0 && static_cast<CORBA::ULong>(n) > bound)
        fail(minor_bound);
    s[n] = 0;
    return s.release();
}

CORBA::Fixed InputStream::read_fixed(CORBA::UShort digits, CORBA::Short scale)
{
    if (digits > CORBA::Fixed::max_digits || scale < 0 || scale > digits)
        fail(minor_bad_fixed);
    const std::size_t octets = (digits + 2u) / 2u;
    const unsigned char* p = take(octets);
    CORBA::Octet d[CORBA::Fixed::max_digits + 1];
    // Nibbles, most significant first: a pad nibble when the digit count is
    // even, the digits, the sign.
    const std::size_t nibbles = 2 * octets;
    const std::size_t first = digits % 2 == 0 ? 1 : 0;
    if (first != 0 && (p[0] >> 4) != 0)
        fail(minor_bad_fixed);
    for (std::size_t i = first; i + 1 < nibbles; ++i) {
        const unsigned v = (i % 2 == 0) ? p[i / 2] >> 4 : p[i / 2] & 0xf;
        if (v > 9)
            fail(minor_bad_fixed);
        d[i - first] = static_cast<CORBA::Octet>(v);
    }
    const unsigned sign = p[octets - 1] & 0xf;
    if (sign != 0xc && sign != 0xd)
        fail(minor_bad_fixed);
    return CORBA::Fixed::yv_from_digits(d, digits, static_cast<CORBA::UShort>(scale), sign == 0xd);
}

InputStream InputStream::encapsulation()
{
    const CORBA::ULong length = read_ulong();
    if (length == 0 || length > remaining())
        fail(minor_bad_length);
    const unsigned char* p = take(length);
    if (p[0] > 1)
        fail(minor_bad_byte_order);
    InputStream inner(p, length, p[0] == 1, 0);
    inner.m_giop_minor = m_giop_minor;
    inner.m_cur = p + 1;
    return inner;
}

} // namespace YV_CDR
