// The decoder of the Common Data Representation: reads values from a
// buffer that someone else owns (a received message, an encapsulation, the
// encoded value an any keeps), swapping when the sender's byte order is not
// this host's.
//
// Reading is defensive: every read checks the octets left, and a length,
// count or value that the data cannot hold raises CORBA::MARSHAL (completion
// status COMPLETED_NO; a reader of a reply changes it). Nothing is read past
// the end and nothing is allocated beyond what the octets left can fill.
#ifndef YV_RT_YV_CDR_INPUTSTREAM_H
#define YV_RT_YV_CDR_INPUTSTREAM_H

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

// Minor codes of the MARSHAL exceptions the decoder raises.
enum MarshalMinor : CORBA::ULong {
    minor_end_of_data = 1,      // a read past the octets left
    minor_bad_length = 2,       // a length or count the octets left cannot hold
    minor_bad_string = 3,       // a string without its terminating NUL, or empty
    minor_bad_boolean = 4,      // a boolean other than 0 or 1
    minor_bad_enum = 5,         // an enumerator or discriminator out of range
    minor_bad_byte_order = 6,   // an encapsulation byte-order octet other than 0 or 1
    minor_bad_typecode = 7,     // a malformed or unknown type code
    minor_bad_fixed = 8,        // a packed decimal digit or sign nibble out of range
    minor_bad_wchar = 9,        // a wide character the code set cannot hold
    minor_bound = 10,           // a bounded string or sequence over its bound
    minor_nesting = 11          // values nested deeper than the decoder allows
};

class InputStream {
public:
    // Reads the `size` octets at `data`. `phase` is the alignment of
    // data[0]: its offset from the start of the message modulo 8.
    InputStream(const unsigned char* data, std::size_t size, bool little_endian, std::size_t phase = 0)
        : m_begin(data), m_cur(data), m_end(data + size), m_limit(m_end), m_phase(phase & 7), m_little(little_endian)
    {
    }

    bool little_endian() const { return m_little; }
    void little_endian(bool v) { m_little = v; }
    unsigned giop_minor() const { return m_giop_minor; }
    void giop_minor(unsigned minor) { m_giop_minor = minor; }

    CORBA::Boolean read_boolean()
    {
        const unsigned char v = *take(1);
        if (v > 1)
            fail(minor_bad_boolean);
        return v == 1;
    }
    CORBA::Char read_char() { return static_cast<CORBA::Char>(*take(1)); }
    CORBA::Octet read_octet() { return *take(1); }
    CORBA::Short read_short() { return static_cast<CORBA::Short>(get<std::uint16_t>()); }
    CORBA::UShort read_ushort() { return get<std::uint16_t>(); }
    CORBA::Long read_long() { return static_cast<CORBA::Long>(get<std::uint32_t>()); }
    CORBA::ULong read_ulong() { return get<std::uint32_t>(); }
    CORBA::LongLong read_longlong() { return static_cast<CORBA::LongLong>(get<std::uint64_t>()); }
    CORBA::ULongLong read_ulonglong() { return get<std::uint64_t>(); }
    CORBA::Float read_float()
    {
        const std::uint32_t bits = get<std::uint32_t>();
        CORBA::Float v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }
    CORBA::Double read_double()
    {
        const std::uint64_t bits = get<std::uint64_t>();
        CORBA::Double v;
        std::memcpy(&v, &bits, sizeof v);
        return v;
    }
    // IEEE 754 binary128 (16 octets, 8-aligned), rounded to the host's
    // long double.
    CORBA::LongDouble read_longdouble();
    // One character in UTF-16 as the GIOP version writes it (see
    // OutputStream::write_wchar). GIOP 1.2: the code units are big-endian
    // unless a byte-order mark comes first. Lone surrogates, more than one
    // character and GIOP 1.0 raise MARSHAL.
    CORBA::WChar read_wchar();

    // A new string (CORBA::string_alloc); `bound` (when not 0) is checked.
    char* read_string(CORBA::ULong bound = 0);
    // A new wide string (CORBA::wstring_alloc), surrogate pairs joined;
    // GIOP 1.2: big-endian unless a byte-order mark comes first. An odd
    // octet length, a lone surrogate, a NUL inside, a missing terminator
    // (GIOP 1.1) or more than `bound` characters raise MARSHAL.
    CORBA::WChar* read_wstring(CORBA::ULong bound = 0);
    // Packed decimal (see OutputStream::write_fixed): MARSHAL for a digit
    // nibble over 9, a sign nibble other than 0xC and 0xD, a nonzero pad
    // nibble, or digits and scale no fixed type has.
    CORBA::Fixed read_fixed(CORBA::UShort digits, CORBA::Short scale);

    void read_octet_array(CORBA::Octet* v, std::size_t n)
    {
        if (!fits(n))
            read_split(v, n, 1);
        else if (n != 0)
            std::memcpy(v, take(n), n);
    }
    void read_char_array(CORBA::Char* v, std::size_t n) { read_octet_array(reinterpret_cast<CORBA::Octet*>(v), n); }
    void read_boolean_array(CORBA::Boolean* v, std::size_t n);
    template <class T>
    void read_array(T* v, std::size_t n)
    {
        static_assert(sizeof(T) == 2 || sizeof(T) == 4 || sizeof(T) == 8, "a primitive of 2, 4 or 8 octets");
        if (n == 0)
            return;
        align(sizeof(T));
        if (n > remaining() / sizeof(T))
            fail(minor_end_of_data);
        if (!fits(sizeof(T) * n)) {
            read_split(v, n, sizeof(T));
            return;
        }
        const unsigned char* p = take(sizeof(T) * n);
        if (m_little == native_little_endian) {
            std::memcpy(v, p, sizeof(T) * n);
            return;
        }
        typedef typename Unsigned<sizeof(T)>::type U;
        for (std::size_t i = 0; i < n; ++i) {
            const U bits = load<U>(p + i * sizeof(T), true);
            std::memcpy(v + i, &bits, sizeof bits);
        }
    }

    // The length of a sequence whose elements take at least
    // `min_element_size` octets each: MARSHAL when the octets left cannot
    // hold that many.
    CORBA::ULong read_count(std::size_t min_element_size)
    {
        const CORBA::ULong n = read_ulong();
        // 64-bit product: n < 2^32 and element sizes are small.
        if (static_cast<std::uint64_t>(n) * min_element_size > remaining())
            fail(minor_bad_length);
        return n;
    }

    // `n` octets read in place: the pointer stays valid as long as the
    // buffer does.
    const unsigned char* read_octets(std::size_t n) { return take(n); }
    void skip(std::size_t n) { take(n); }
    void align(std::size_t n)
    {
        const std::size_t pad = (n - ((offset() + m_phase) & (n - 1))) & (n - 1);
        if (!fits(pad))
            take_chunked(n, 0);
        else
            m_cur += pad;
    }

    // The encapsulation that comes next (its ulong length, then its octets):
    // a stream over those octets, byte order from their first octet,
    // alignment counting from it. This stream moves past it.
    InputStream encapsulation();

    std::size_t remaining() const { return static_cast<std::size_t>(m_end - m_cur); }
    // Octets read so far from the start of this stream's data.
    std::size_t offset() const { return static_cast<std::size_t>(m_cur - m_begin); }
    // The next octet to read (its address identifies the position across
    // nested encapsulations of one buffer: type-code indirections use it).
    const unsigned char* cursor() const { return m_cur; }
    const unsigned char* begin() const { return m_begin; }
    const unsigned char* end() const { return m_end; }
    // Moves the cursor to a position of this stream's data (MARSHAL when it
    // lies outside).
    void seek(const unsigned char* at)
    {
        if (at < m_begin || at > m_end)
            fail(minor_end_of_data);
        m_cur = at;
    }
    std::size_t phase() const { return m_phase; }
    // The value decoder's bookkeeping (values and repository ids read, by
    // position; the chunk being read): copies of a stream share it, an
    // encapsulation starts without.
    std::shared_ptr<void>& value_state() { return m_values; }

    // Chunks of a chunked value (the value decoder's): in_chunk(end) says
    // that the chunk being read ends at `end` (null: between chunks), and
    // until not_chunked() reads stop there; a read that needs octets beyond
    // enters the chunk that follows (its size, a long from 1 to 0x7ffffeff).
    // A primitive value, a string or an encapsulation never straddles two
    // chunks (MARSHAL); the elements of an array may lie in several, and
    // padding may end a chunk. remaining() still counts to the end of the
    // data.
    void in_chunk(const unsigned char* end)
    {
        m_chunking = true;
        m_chunk_end = end;
        m_limit = end != nullptr ? end : m_begin;
    }
    void not_chunked()
    {
        m_chunking = false;
        m_chunk_end = nullptr;
        m_limit = m_end;
    }
    // The end of the chunk being read, or null.
    const unsigned char* chunk_end() const { return m_chunk_end; }

    // Raises CORBA::MARSHAL with `minor` (completion status COMPLETED_NO).
    [[noreturn]] static void fail(CORBA::ULong minor);

    // How deep values may nest (type codes, anys in anys, unions in
    // sequences...) before the decoder refuses them.
    static constexpr unsigned max_nesting = 256;

private:
    template <std::size_t N>
    struct Unsigned;

    const unsigned char* take(std::size_t n)
    {
        if (!fits(n))
            return take_chunked(1, n);
        const unsigned char* p = m_cur;
        m_cur += n;
        return p;
    }
    // Whether `n` octets lie before the limit.
    bool fits(std::size_t n) const
    {
        const std::ptrdiff_t left = m_limit - m_cur;
        return left >= 0 && n <= static_cast<std::size_t>(left);
    }
    // A read beyond the limit: MARSHAL, or inside chunks the next chunk
    // entered (`alignment` and `n` of the value read; n = 0 aligns).
    const unsigned char* take_chunked(std::size_t alignment, std::size_t n);
    // An array that does not fit what is left of its chunk, element by
    // element (`size` octets each).
    void read_split(void* v, std::size_t n, std::size_t size);
    // The padding and the value checked against the octets left at once.
    template <class U>
    U get()
    {
        const std::size_t pad = (sizeof(U) - ((offset() + m_phase) & (sizeof(U) - 1))) & (sizeof(U) - 1);
        const unsigned char* p;
        if (!fits(pad + sizeof(U)))
            p = take_chunked(sizeof(U), sizeof(U));
        else
            p = m_cur + pad;
        m_cur = p + sizeof(U);
        return load<U>(p, m_little != native_little_endian);
    }

    const unsigned char* m_begin;
    const unsigned char* m_cur;
    const unsigned char* m_end;
    // Where reads stop: m_end, the end of the chunk being read, or m_begin
    // between chunks (every read goes through take_chunked).
    const unsigned char* m_limit;
    const unsigned char* m_chunk_end = nullptr;
    bool m_chunking = false;
    std::size_t m_phase;
    bool m_little;
    unsigned m_giop_minor = 2;
    std::shared_ptr<void> m_values;
};

template <>
struct InputStream::Unsigned<2> {
    typedef std::uint16_t type;
};
template <>
struct InputStream::Unsigned<4> {
    typedef std::uint32_t type;
};
template <>
struct InputStream::Unsigned<8> {
    typedef std::uint64_t type;
};

} // namespace YV_CDR

#endif
