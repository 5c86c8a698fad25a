// Writes CDR by hand for the raw-socket tests: primitives aligned from the
// start of the message, in either byte order, and anything else byte by
// byte, so that a test can write well-formed and malformed messages alike.
#ifndef GIOP_CDR_WRITER_H
#define GIOP_CDR_WRITER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace giop {

class CdrWriter {
public:
    explicit CdrWriter(bool little_endian) : m_little(little_endian) {}

    void octet(std::uint8_t v) { m_bytes.push_back(v); }
    void ushort(std::uint16_t v) { number(v, 2); }
    void ulong(std::uint32_t v) { number(v, 4); }
    void ulonglong(std::uint64_t v) { number(v, 8); }
    // Length (with the terminating NUL), characters, NUL.
    void string(const std::string& v);
    // Length, octets.
    void octets(const std::vector<std::uint8_t>& v);
    void raw(const std::vector<std::uint8_t>& v) { m_bytes.insert(m_bytes.end(), v.begin(), v.end()); }
    void align(std::size_t n);

    // Overwrites four octets at `offset` (a message size written later).
    void patch_ulong(std::size_t offset, std::uint32_t v);

    std::size_t size() const { return m_bytes.size(); }
    bool little_endian() const { return m_little; }
    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }

private:
    void number(std::uint64_t v, std::size_t width);

    bool m_little;
    std::vector<std::uint8_t> m_bytes;
};

} // namespace giop

#endif
