// The reply to one request as the server writes it: a whole Reply message,
// or only its body (the in-process wire path serves bodies without
// messages). begin() starts the reply anew, so that an exception raised
// while the results were being written replaces them.
#ifndef YV_ORB_REPLYBUILDER_H
#define YV_ORB_REPLYBUILDER_H

#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"

#include <vector>

namespace CORBA {
class Exception;
} // namespace CORBA

namespace YV_ORB {

class ReplyBuilder {
public:
    // A Reply message of `version` for `request_id`.
    ReplyBuilder(YV_GIOP::Version version, CORBA::ULong request_id);
    // Only the body, aligned from its first octet, in GIOP 1.2 encoding.
    ReplyBuilder();
    // The buffer goes back to the thread's spares.
    ~ReplyBuilder();
    ReplyBuilder(const ReplyBuilder&) = delete;
    ReplyBuilder& operator=(const ReplyBuilder&) = delete;

    // Starts the reply with `status`; `with_body` when values follow (GIOP
    // 1.2 then aligns them on 8). The stream receives the body.
    YV_CDR::OutputStream& begin(YV_GIOP::ReplyHeader::Status status, bool with_body);
    YV_GIOP::ReplyHeader::Status status() const { return m_status; }

    // Replies with an exception: a user exception as its class writes it
    // (UNKNOWN when it cannot travel), a system exception as id, minor code
    // and completion status.
    void exception(const CORBA::Exception& e);

    // Completes the reply; data() and size() then hold its octets.
    void finish();
    const unsigned char* data() const { return m_out.data(); }
    std::size_t size() const { return m_out.size(); }
    // Completes the reply and hands out a copy of its octets.
    std::vector<unsigned char> take();

private:
    bool m_framed;
    YV_GIOP::Version m_version;
    CORBA::ULong m_request_id;
    YV_GIOP::ReplyHeader::Status m_status = YV_GIOP::ReplyHeader::NO_EXCEPTION;
    YV_CDR::OutputStream m_out;
};

} // namespace YV_ORB

#endif
