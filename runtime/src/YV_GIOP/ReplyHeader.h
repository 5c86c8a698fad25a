// The header of a Reply message: 1.0 and 1.1 put the service contexts
// first, 1.2 last (and align the body that follows on 8).
#ifndef YV_GIOP_REPLYHEADER_H
#define YV_GIOP_REPLYHEADER_H

#include "YV_GIOP/MessageHeader.h"
#include "YV_GIOP/ServiceContextList.h"

namespace YV_GIOP {

struct ReplyHeader {
    enum Status : CORBA::ULong {
        NO_EXCEPTION = 0,
        USER_EXCEPTION = 1,
        SYSTEM_EXCEPTION = 2,
        LOCATION_FORWARD = 3,
        LOCATION_FORWARD_PERM = 4,   // 1.2
        NEEDS_ADDRESSING_MODE = 5    // 1.2
    };

    CORBA::ULong request_id = 0;
    Status reply_status = NO_EXCEPTION;
    ServiceContextList service_contexts;

    void write(YV_CDR::OutputStream& out, Version version) const;
    // MARSHAL for a status the version does not have.
    static ReplyHeader read(YV_CDR::InputStream& in, Version version);
};

} // namespace YV_GIOP

#endif
