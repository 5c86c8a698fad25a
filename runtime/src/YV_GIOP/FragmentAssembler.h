// Puts fragmented messages together. A message with the more-fragments
// flag is kept until its last Fragment arrives; the result is the first
// message's header (flag cleared, size of the whole) followed by the bodies
// of all pieces. GIOP 1.1 fragments follow their message one after the
// other; GIOP 1.2 fragments name their request id (the first octets of
// every piece) and may interleave with other messages.
//
// `limit` bounds the size of a message put together and of all the
// octets kept at once: beyond it the connection is in error.
#ifndef YV_GIOP_FRAGMENTASSEMBLER_H
#define YV_GIOP_FRAGMENTASSEMBLER_H

#include "YV_GIOP/Message.h"

#include <cstddef>
#include <map>

namespace YV_GIOP {

class FragmentAssembler {
public:
    enum Result {
        complete,   // `whole` is a message ready to serve
        pending,    // kept: more fragments follow
        error       // a protocol error: the peer is sent MessageError
    };

    explicit FragmentAssembler(std::size_t limit) : m_limit(limit) {}

    // Takes a message whose octets and header have been read.
    Result add(Message&& piece, Message& whole);

    std::size_t kept() const { return m_kept; }

private:
    Result append(Message& first, const Message& fragment, std::size_t data_offset, Message& whole);

    std::size_t m_limit;
    std::size_t m_kept = 0;
    // GIOP 1.2: messages waiting for fragments, by request id.
    std::map<CORBA::ULong, Message> m_by_id;
    // GIOP 1.1: the one message waiting for fragments.
    Message m_v11;
    bool m_v11_open = false;
};

} // namespace YV_GIOP

#endif
