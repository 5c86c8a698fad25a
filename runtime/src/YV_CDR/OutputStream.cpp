#include "../../include/zantic_sys/YV_CDR/OutputStream.h"

#include "../../include/zantic_sys/CORBA/Fixed.h"
#include "../../include/zantic_sys/CORBA/SystemException.h"
#include "Utf16.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace YV_CDR {

OutputStream::OutputStream(bool little_endian, std::size_t initial_capacity) : m_little(little_endian)
{
    if (initial_capacity != 0)
        reserve_more(initial_capacity);
}

OutputStream::OutputStream(OutputStream&& other) noexcept
    : m_buf(std::exchange(other.m_buf, nullptr)),
      m_size(std::exchange(other.m_size, 0)),
      m_cap(std::exchange(other.m_cap, 0)),
      m_base(std::exchange(other.m_base, 0)),
      m_little(other.m_little),
      m_giop_minor(other.m_giop_minor),
      m_values(std::move(other.m_values))
{
}

OutputStream& OutputStream::operator=(OutputStream&& other) noexcept
{
    if (this != &other) {
        std::free(m_buf);
        m_buf = std::exchange(other.m_buf, nullptr);
        m_size = std::exchange(other.m_size, 0);
        m_cap = std::exchange(other.m_cap, 0);
        m_base = std::exchange(other.m_base, 0);
        m_little = other.m_little;
        m_giop_minor = other.m_giop_minor;
        m_values = std::move(other.m_values);
    }
    return *this;
}

OutputStream::~OutputStream() { std::free(m_buf); }

void OutputStream::reserve_more(std::size_t n)
{
    std::size_t cap = m_cap == 0 ? 256 : m_cap;
    // One large write (a block of octets) gets room for itself alone,
    // rather than twice what it needs; doubling goes on from there.
    if (n > cap && m_size + n > 2 * cap)
        cap = m_size + n;
    while (cap - m_size < n) {
        if (cap > (static_cast<std::size_t>(-1) >> 1))
            throw CORBA::NO_MEMORY(0, CORBA::COMPLETED_NO);
        cap *= 2;
    }
    void* grown = std::realloc(m_buf, cap);
    if (grown == nullptr)
        throw CORBA::NO_MEMORY(0, CORBA::COMPLETED_NO);
    m_buf = static_cast<unsigned char*>(grown);
    m_cap = cap;
}

void OutputStream::write_boolean_array(const CORBA::Boolean* v, std::size_t n)
{
    unsigned char* p = grow(n);
    for (std::size_t i = 0; i < n; ++i)
        p[i] = v[i] ? 1 : 0;
}

void OutputStream::bad_string() { throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO); }

void OutputStream::write_longdouble(CORBA::LongDouble v)
{
    const __float128 q = static_cast<__float128>(v);
    std::uint64_t half[2];
    std::memcpy(half, &q, sizeof half);
    const std::uint64_t low = native_little_endian ? half[0] : half[1];
    const std::uint64_t high = native_little_endian ? half[1] : half[0];
    unsigned char* p = grow_aligned(16, 8);
    const bool swap = m_little != native_little_endian;
    store<std::uint64_t>(p, m_little ? low : high, swap);
    store<std::uint64_t>(p + 8, m_little ? high : low, swap);
}

namespace {

[[noreturn]] void no_wide_characters() { throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO); }
[[noreturn]] void not_convertible() { throw CORBA::DATA_CONVERSION(0, CORBA::COMPLETED_NO); }

std::uint32_t scalar_value(CORBA::WChar c)
{
    const std::uint32_t v = static_cast<std::uint32_t>(c);
    if (!utf16::is_scalar_value(v))
        not_convertible();
    return v;
}

void store_be16(unsigned char* p, std::uint32_t u)
{
    p[0] = static_cast<unsigned char>(u >> 8);
    p[1] = static_cast<unsigned char>(u);
}

} // namespace

void OutputStream::write_wchar(CORBA::WChar v)
{
    if (m_giop_minor == 0)
        no_wide_characters();
    const std::uint32_t c = scalar_value(v);
    if (m_giop_minor == 1) {
        if (c > 0xffff)
            not_convertible();
        write_ushort(static_cast<CORBA::UShort>(c));
        return;
    }
    const unsigned units = utf16::units_of(c);
    unsigned char* p = grow(1 + 2 * units);
    p[0] = static_cast<unsigned char>(2 * units);
    if (units == 1) {
        store_be16(p + 1, c);
    } else {
        store_be16(p + 1, utf16::high_surrogate(c));
        store_be16(p + 3, utf16::low_surrogate(c));
    }
}

void OutputStream::write_wstring(const CORBA::WChar* s, CORBA::ULong bound)
{
    if (s == nullptr || m_giop_minor == 0)
        no_wide_characters();
    std::size_t length = 0;
    std::size_t units = 0;
    for (; s[length] != 0; ++length)
        units += utf16::units_of(scalar_value(s[length]));
    if ((bound != 0 && length > bound) || units >= 0x7fffffffu)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    if (m_giop_minor == 1) {
        write_ulong(static_cast<CORBA::ULong>(units + 1));
        unsigned char* p = grow(2 * (units + 1));
        const bool swap = m_little != native_little_endian;
        for (std::size_t i = 0; i < length; ++i) {
            const std::uint32_t c = static_cast<std::uint32_t>(s[i]);
            if (c > 0xffff) {
                store<std::uint16_t>(p, utf16::high_surrogate(c), swap);
                store<std::uint16_t>(p + 2, utf16::low_surrogate(c), swap);
                p += 4;
            } else {
                store<std::uint16_t>(p, static_cast<std::uint16_t>(c), swap);
                p += 2;
            }
        }
        store<std::uint16_t>(p, 0, false);
        return;
    }
    write_ulong(static_cast<CORBA::ULong>(2 * units));
    unsigned char* p = grow(2 * units);
    for (std::size_t i = 0; i < length; ++i) {
        const std::uint32_t c = static_cast<std::uint32_t>(s[i]);
        if (c > 0xffff) {
            store_be16(p, utf16::high_surrogate(c));
            store_be16(p + 2, utf16::low_surrogate(c));
            p += 4;
        } else {
            store_be16(p, c);
            p += 2;
        }
    }
}

void OutputStream::write_fixed(const CORBA::Fixed& v, CORBA::UShort digits, CORBA::Short scale)
{
    if (digits > CORBA::Fixed::max_digits || scale < 0 || scale > digits)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    const CORBA::Fixed f = v.truncate(static_cast<CORBA::UShort>(scale));
    if (f.fixed_digits() - f.fixed_scale() > digits - scale)
        not_convertible();
    // Nibbles, most significant first: a pad nibble when the digit count is
    // even, the digits, the sign.
    const std::size_t octets = (digits + 2u) / 2u;
    unsigned char* p = grow(octets);
    std::memset(p, 0, octets);
    const int shift = scale - f.fixed_scale();
    std::size_t nibble = (digits % 2 == 0) ? 1 : 0;
    for (int place = digits - 1; place >= 0; --place, ++nibble) {
        const int position = place - shift;
        const unsigned d = position < 0 ? 0 : f.yv_digit(static_cast<CORBA::UShort>(position));
        p[nibble / 2] = static_cast<unsigned char>(p[nibble / 2] | (nibble % 2 == 0 ? d << 4 : d));
    }
    p[octets - 1] = static_cast<unsigned char>(p[octets - 1] | (f.yv_negative() ? 0xd : 0xc));
}

OutputStream::Encapsulation OutputStream::begin_encapsulation()
{
    Encapsulation e{reserve_ulong(), m_base};
    m_base = m_size;
    write_boolean(m_little);
    return e;
}

void OutputStream::end_encapsulation(const Encapsulation& e)
{
    patch_ulong(e.length_at, static_cast<CORBA::ULong>(m_size - e.length_at - 4));
    m_base = e.outer_base;
}

} // namespace YV_CDR
