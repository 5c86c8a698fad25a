// A whole GIOP message as received: its header and all its octets (header
// included), fragments already put together.
#ifndef YV_GIOP_MESSAGE_H
#define YV_GIOP_MESSAGE_H

#include "YV_GIOP/MessageHeader.h"
#include "zantic_sys/YV_CDR/InputStream.h"

#include <vector>

namespace YV_GIOP {

struct Message {
    MessageHeader header;
    std::vector<unsigned char> octets;

    // A decoder positioned after the header, in the message's byte order,
    // aligned from the header's first octet and set for its GIOP version.
    // It reads `octets`, which must outlive it.
    YV_CDR::InputStream body() const
    {
        YV_CDR::InputStream in(octets.data(), octets.size(), header.little_endian);
        in.giop_minor(header.version.minor);
        in.skip(MessageHeader::size);
        return in;
    }
};

} // namespace YV_GIOP

#endif
