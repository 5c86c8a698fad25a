#include "CdrWriter.h"

namespace giop {

void CdrWriter::number(std::uint64_t v, std::size_t width)
{
    align(width);
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t shift = 8 * (m_little ? i : width - 1 - i);
        m_bytes.push_back(static_cast<std::uint8_t>(v >> shift));
    }
}

void CdrWriter::string(const std::string& v)
{
    ulong(static_cast<std::uint32_t>(v.size() + 1));
    m_bytes.insert(m_bytes.end(), v.begin(), v.end());
    m_bytes.push_back(0);
}

void CdrWriter::octets(const std::vector<std::uint8_t>& v)
{
    ulong(static_cast<std::uint32_t>(v.size()));
    raw(v);
}

void CdrWriter::align(std::size_t n)
{
    while (m_bytes.size() % n)
        m_bytes.push_back(0);
}

void CdrWriter::patch_ulong(std::size_t offset, std::uint32_t v)
{
    for (std::size_t i = 0; i < 4; ++i) {
        const std::size_t shift = 8 * (m_little ? i : 3 - i);
        m_bytes.at(offset + i) = static_cast<std::uint8_t>(v >> shift);
    }
}

} // namespace giop
