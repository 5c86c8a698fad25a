// Writes one GIOP message: the header first (its size filled in by
// finish()), then whatever the caller writes into stream(). Alignment
// counts from the first octet of the header, as GIOP requires.
#ifndef YV_GIOP_MESSAGEBUILDER_H
#define YV_GIOP_MESSAGEBUILDER_H

#include "YV_GIOP/MessageHeader.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <vector>

namespace YV_GIOP {

class MessageBuilder {
public:
    MessageBuilder(Version version, MsgType type, bool little_endian = YV_CDR::native_little_endian);
    // The buffer goes back to the thread's spares (SpareBuffers).
    ~MessageBuilder();
    MessageBuilder(MessageBuilder&&) = default;
    MessageBuilder& operator=(MessageBuilder&&) = default;

    YV_CDR::OutputStream& stream() { return m_out; }
    Version version() const { return m_header.version; }

    // GIOP 1.2 aligns the body of Request, Reply and LocateReply messages on
    // 8; earlier versions go on where the header ended. Called before the
    // first octet of a body, and only when there is one.
    void begin_body();

    // Fills in the size: the stream then holds the whole message.
    void finish();
    const unsigned char* data() const { return m_out.data(); }
    std::size_t size() const { return m_out.size(); }

    // The messages that are only a header: CloseConnection, MessageError.
    static std::vector<unsigned char> header_only(Version version, MsgType type);

private:
    MessageHeader m_header;
    YV_CDR::OutputStream m_out;
};

} // namespace YV_GIOP

#endif
