#include "YV_GIOP/MessageHeader.h"

#include "zantic_sys/YV_CDR/ByteOrder.h"

#include <cstdint>

namespace YV_GIOP {

MessageHeader::Problem MessageHeader::parse(const unsigned char* p)
{
    if (p[0] != 'G' || p[1] != 'I' || p[2] != 'O' || p[3] != 'P')
        return bad_magic;
    version.major = p[4];
    version.minor = p[5];
    if (version.major != 1 || version.minor > 2)
        return bad_version;
    // GIOP 1.0 has a byte-order boolean where later versions have flags.
    little_endian = (p[6] & 0x01) != 0;
    more_fragments = version.minor >= 1 && (p[6] & 0x02) != 0;
    const bool swap = little_endian != YV_CDR::native_little_endian;
    body_size = YV_CDR::load<std::uint32_t>(p + 8, swap);
    if (p[7] > Fragment || (p[7] == Fragment && version.minor == 0))
        return bad_type;
    type = static_cast<MsgType>(p[7]);
    return ok;
}

void MessageHeader::write(unsigned char* p) const
{
    p[0] = 'G';
    p[1] = 'I';
    p[2] = 'O';
    p[3] = 'P';
    p[4] = version.major;
    p[5] = version.minor;
    p[6] = static_cast<unsigned char>((little_endian ? 0x01 : 0) | (more_fragments && version.minor >= 1 ? 0x02 : 0));
    p[7] = type;
    YV_CDR::store<std::uint32_t>(p + 8, body_size, little_endian != YV_CDR::native_little_endian);
}

} // namespace YV_GIOP
