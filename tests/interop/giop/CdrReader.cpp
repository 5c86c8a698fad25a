#include "CdrReader.h"

#include <stdexcept>

namespace giop {

void CdrReader::need(std::size_t n) const
{
    if (n > m_bytes.size() - m_pos)
        throw std::runtime_error("CDR data ends early");
}

void CdrReader::align(std::size_t n)
{
    const std::size_t pad = (n - (m_pos - m_origin) % n) % n;
    need(pad);
    m_pos += pad;
}

std::uint8_t CdrReader::octet()
{
    need(1);
    return m_bytes[m_pos++];
}

std::uint64_t CdrReader::number(std::size_t width)
{
    align(width);
    need(width);
    std::uint64_t v = 0;
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t shift = 8 * (m_little ? i : width - 1 - i);
        v |= static_cast<std::uint64_t>(m_bytes[m_pos + i]) << shift;
    }
    m_pos += width;
    return v;
}

std::string CdrReader::string()
{
    const std::uint32_t length = ulong();
    need(length);
    if (length == 0 || m_bytes[m_pos + length - 1] != 0)
        throw std::runtime_error("CDR string without its terminating NUL");
    std::string v(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_pos),
                  m_bytes.begin() + static_cast<std::ptrdiff_t>(m_pos + length - 1));
    m_pos += length;
    return v;
}

std::vector<std::uint8_t> CdrReader::octets()
{
    const std::uint32_t length = ulong();
    need(length);
    std::vector<std::uint8_t> v(m_bytes.begin() + static_cast<std::ptrdiff_t>(m_pos),
                                m_bytes.begin() + static_cast<std::ptrdiff_t>(m_pos + length));
    m_pos += length;
    return v;
}

} // namespace giop
