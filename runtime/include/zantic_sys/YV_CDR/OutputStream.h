// The encoder of the Common Data Representation: values written into one
// growing buffer, each aligned on its natural boundary counted from the
// start of the message (or of the encapsulation being written), in the
// byte order chosen when the stream was made.
//
// Primitive writers are inline: generated marshaling code calls them once
// per member. Strings, wide characters, long doubles and fixed-point values
// are written out of line.
#ifndef YV_RT_YV_CDR_OUTPUTSTREAM_H
#define YV_RT_YV_CDR_OUTPUTSTREAM_H

#include "../CORBA/Types.h"
#include "ByteOrder.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

namespace CORBA {
class Fixed;
}

namespace YV_CDR {

class OutputStream {
public:
    explicit OutputStream(bool little_endian = native_little_endian, std::size_t initial_capacity = 256);
    OutputStream(OutputStream&& other) noexcept;
    OutputStream& operator=(OutputStream&& other) noexcept;
    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;
    ~OutputStream();

    bool little_endian() const { return m_little; }
    // The GIOP minor version the data is for: it decides the encoding of
    // wide characters and wide strings (1.2 by default).
    unsigned giop_minor() const { return m_giop_minor; }
    void giop_minor(unsigned minor) { m_giop_minor = minor; }

    void write_boolean(CORBA::Boolean v) { *grow(1) = v ? 1 : 0; }
    void write_char(CORBA::Char v) { *grow(1) = static_cast<unsigned char>(v); }
    void write_octet(CORBA::Octet v) { *grow(1) = v; }
    void write_short(CORBA::Short v) { put(static_cast<std::uint16_t>(v)); }
    void write_ushort(CORBA::UShort v) { put(static_cast<std::uint16_t>(v)); }
    void write_long(CORBA::Long v) { put(static_cast<std::uint32_t>(v)); }
    void write_ulong(CORBA::ULong v) { put(static_cast<std::uint32_t>(v)); }
    void write_longlong(CORBA::LongLong v) { put(static_cast<std::uint64_t>(v)); }
    void write_ulonglong(CORBA::ULongLong v) { put(static_cast<std::uint64_t>(v)); }
    void write_float(CORBA::Float v)
    {
        std::uint32_t bits;
        std::memcpy(&bits, &v, sizeof bits);
        put(bits);
    }
    void write_double(CORBA::Double v)
    {
        std::uint64_t bits;
        std::memcpy(&bits, &v, sizeof bits);
        put(bits);
    }
    // IEEE 754 binary128, 8-aligned, 16 octets.
    void write_longdouble(CORBA::LongDouble v);
    // One character in UTF-16. GIOP 1.2: an octet count and the code units,
    // big-endian (a character beyond the basic plane as a surrogate pair);
    // GIOP 1.1: one code unit, 2-aligned, in the stream's byte order.
    // DATA_CONVERSION for a value that is no Unicode scalar value (or, in
    // GIOP 1.1, lies beyond the basic plane); BAD_PARAM in GIOP 1.0, which
    // has no wide characters.
    void write_wchar(CORBA::WChar v);

    // A string: its length with the NUL, the characters and the NUL. A null
    // pointer is BAD_PARAM. `bound` (when not 0) is checked (BAD_PARAM).
    void write_string(const char* s, CORBA::ULong bound = 0)
    {
        if (s == nullptr)
            bad_string();
        write_string(s, std::strlen(s), bound);
    }
    void write_string(const char* s, std::size_t length, CORBA::ULong bound)
    {
        if ((bound != 0 && length > bound) || length >= 0xffffffffu)
            bad_string();
        // The length, the characters and the NUL in one step.
        unsigned char* p = grow_aligned(4 + length + 1, 4);
        store<std::uint32_t>(p, static_cast<std::uint32_t>(length + 1), m_little != native_little_endian);
        std::memcpy(p + 4, s, length);
        p[4 + length] = 0;
    }
    // A wide string in UTF-16. GIOP 1.2: its length in octets, then the code
    // units big-endian, no terminator and no byte-order mark; GIOP 1.1: its
    // length in code units with a terminating NUL, then the code units in
    // the stream's byte order and the NUL. Errors as for write_wchar; a
    // null pointer or a string over `bound` (when not 0) is BAD_PARAM.
    void write_wstring(const CORBA::WChar* s, CORBA::ULong bound = 0);
    // Packed decimal of `digits` digits, `scale` of them after the point:
    // two digits an octet, most significant first, a leading zero nibble
    // when `digits` is even, the sign nibble last (0xC or 0xD). Digits after
    // `scale` are cut off; DATA_CONVERSION when the integral part does not
    // fit, BAD_PARAM for digits over 31 or a scale over the digits.
    void write_fixed(const CORBA::Fixed& v, CORBA::UShort digits, CORBA::Short scale);

    // Arrays of primitives: one alignment, then the elements; copied as a
    // block when no swapping is needed.
    void write_octet_array(const CORBA::Octet* v, std::size_t n)
    {
        if (n != 0)
            std::memcpy(grow(n), v, n);
    }
    void write_char_array(const CORBA::Char* v, std::size_t n) { write_octet_array(reinterpret_cast<const CORBA::Octet*>(v), n); }
    void write_boolean_array(const CORBA::Boolean* v, std::size_t n);
    template <class T>
    void write_array(const T* v, std::size_t n)
    {
        static_assert(sizeof(T) == 2 || sizeof(T) == 4 || sizeof(T) == 8, "a primitive of 2, 4 or 8 octets");
        if (n == 0)
            return;
        unsigned char* p = grow_aligned(sizeof(T) * n, sizeof(T));
        if (m_little == native_little_endian) {
            std::memcpy(p, v, sizeof(T) * n);
            return;
        }
        typedef typename Unsigned<sizeof(T)>::type U;
        for (std::size_t i = 0; i < n; ++i) {
            U bits;
            std::memcpy(&bits, v + i, sizeof bits);
            store<U>(p + i * sizeof(T), bits, true);
        }
    }

    // Pads with zero octets up to the next multiple of `n` (1, 2, 4 or 8).
    void align(std::size_t n) { grow_aligned(0, n); }

    // An encapsulation: begin writes a length placeholder and the byte-order
    // octet, and alignment counts from that octet until end, which fills
    // in the length. Encapsulations nest.
    struct Encapsulation {
        std::size_t length_at;
        std::size_t outer_base;
    };
    Encapsulation begin_encapsulation();
    void end_encapsulation(const Encapsulation& e);

    // A ulong whose value is written later (message and body sizes).
    std::size_t reserve_ulong()
    {
        grow_aligned(4, 4);
        return m_size - 4;
    }
    void patch_ulong(std::size_t at, CORBA::ULong v) { store<std::uint32_t>(m_buf + at, v, m_little != native_little_endian); }

    // The octets written so far.
    const unsigned char* data() const { return m_buf; }
    unsigned char* data() { return m_buf; }
    std::size_t size() const { return m_size; }
    // Forgets what was written; the buffer is kept for reuse.
    void clear()
    {
        m_size = 0;
        m_base = 0;
        m_values.reset();
    }
    // Drops the octets written after `size` (a value encoder taking back
    // a chunk it opened and left empty).
    void shrink_to(std::size_t size)
    {
        if (size < m_size)
            m_size = size;
    }
    // The value encoder's bookkeeping for this stream (values and
    // repository ids already written, the chunk open): kept here so that
    // sharing spans every value of one message. Empty until a value is
    // written.
    std::shared_ptr<void>& value_state() { return m_values; }
    // Where alignment counts from: the offset of a position that is aligned
    // on every boundary (0: the start of the buffer).
    std::size_t alignment_base() const { return m_base; }
    void alignment_base(std::size_t offset) { m_base = offset; }

    // Room for `n` more octets, unaligned; the caller fills them in.
    unsigned char* grow(std::size_t n)
    {
        if (m_cap - m_size < n)
            reserve_more(n);
        unsigned char* p = m_buf + m_size;
        m_size += n;
        return p;
    }
    // Zero padding up to a multiple of `align`, then room for `n` octets.
    unsigned char* grow_aligned(std::size_t n, std::size_t align)
    {
        const std::size_t pad = (align - ((m_size - m_base) & (align - 1))) & (align - 1);
        // Room for 8 octets more than needed: the padding (at most 7
        // octets) is zeroed by one 8-octet store, whose tail the value
        // overwrites or that lies beyond the data.
        if (m_cap - m_size < n + 8)
            reserve_more(n + 8);
        unsigned char* p = m_buf + m_size;
        std::memset(p, 0, 8);
        m_size += pad + n;
        return p + pad;
    }

private:
    template <std::size_t N>
    struct Unsigned;

    template <class U>
    void put(U v)
    {
        store<U>(grow_aligned(sizeof(U), sizeof(U)), v, m_little != native_little_endian);
    }
    void reserve_more(std::size_t n);
    // Raises BAD_PARAM: a null string, or one over its bound.
    [[noreturn]] static void bad_string();

    unsigned char* m_buf = nullptr;
    std::size_t m_size = 0;
    std::size_t m_cap = 0;
    std::size_t m_base = 0;
    bool m_little;
    unsigned m_giop_minor = 2;
    std::shared_ptr<void> m_values;
};

template <>
struct OutputStream::Unsigned<2> {
    typedef std::uint16_t type;
};
template <>
struct OutputStream::Unsigned<4> {
    typedef std::uint32_t type;
};
template <>
struct OutputStream::Unsigned<8> {
    typedef std::uint64_t type;
};

} // namespace YV_CDR

#endif
