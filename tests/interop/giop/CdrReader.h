// Reads CDR received by the raw-socket tests; every read checks the octets
// left and throws std::runtime_error when the data ends early.
#ifndef GIOP_CDR_READER_H
#define GIOP_CDR_READER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace giop {

class CdrReader {
public:
    // Reads `bytes` from `start`; alignment counts from `origin` (the start
    // of the message, or of an encapsulation).
    CdrReader(const std::vector<std::uint8_t>& bytes, bool little_endian, std::size_t start = 0,
              std::size_t origin = 0)
        : m_bytes(bytes), m_little(little_endian), m_pos(start), m_origin(origin)
    {
    }

    std::uint8_t octet();
    std::uint16_t ushort() { return static_cast<std::uint16_t>(number(2)); }
    std::uint32_t ulong() { return static_cast<std::uint32_t>(number(4)); }
    std::uint64_t ulonglong() { return number(8); }
    std::string string();
    std::vector<std::uint8_t> octets();
    void align(std::size_t n);

    void set_little_endian(bool little) { m_little = little; }
    std::size_t position() const { return m_pos; }
    std::size_t left() const { return m_bytes.size() - m_pos; }

private:
    std::uint64_t number(std::size_t width);
    void need(std::size_t n) const;

    const std::vector<std::uint8_t>& m_bytes;
    bool m_little;
    std::size_t m_pos;
    std::size_t m_origin;
};

} // namespace giop

#endif
