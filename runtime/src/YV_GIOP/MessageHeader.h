// The twelve octets that begin every GIOP message: magic "GIOP", protocol
// version, flags (byte order, more fragments follow), message type and the
// size of the body that follows the header.
#ifndef YV_GIOP_MESSAGEHEADER_H
#define YV_GIOP_MESSAGEHEADER_H

#include "zantic_sys/CORBA/Types.h"

#include <cstddef>

namespace YV_GIOP {

struct Version {
    CORBA::Octet major = 1;
    CORBA::Octet minor = 2;

    bool operator==(const Version& o) const { return major == o.major && minor == o.minor; }
    bool operator!=(const Version& o) const { return !(*this == o); }
    bool operator<(const Version& o) const { return major != o.major ? major < o.major : minor < o.minor; }
};

enum MsgType : CORBA::Octet {
    Request = 0,
    Reply = 1,
    CancelRequest = 2,
    LocateRequest = 3,
    LocateReply = 4,
    CloseConnection = 5,
    MessageError = 6,
    Fragment = 7
};

struct MessageHeader {
    static constexpr std::size_t size = 12;

    enum Problem { ok, bad_magic, bad_version, bad_type };

    Version version;
    bool little_endian = false;
    bool more_fragments = false;
    MsgType type = Request;
    CORBA::ULong body_size = 0;

    // Reads a header from its twelve octets. The version must be 1.0, 1.1
    // or 1.2; a type beyond Fragment, or Fragment in 1.0, is bad_type. The
    // fields read so far are kept whatever the answer.
    Problem parse(const unsigned char* octets);
    // Writes the twelve octets.
    void write(unsigned char* octets) const;
};

} // namespace YV_GIOP

#endif
