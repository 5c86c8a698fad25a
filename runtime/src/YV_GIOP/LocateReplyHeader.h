// The header of a LocateReply message. What follows depends on the status:
// a reference for the forwards, a system exception (1.2), an addressing
// disposition (1.2); GIOP 1.2 aligns that body on 8.
#ifndef YV_GIOP_LOCATEREPLYHEADER_H
#define YV_GIOP_LOCATEREPLYHEADER_H

#include "YV_GIOP/MessageHeader.h"

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_GIOP {

struct LocateReplyHeader {
    enum Status : CORBA::ULong {
        UNKNOWN_OBJECT = 0,
        OBJECT_HERE = 1,
        OBJECT_FORWARD = 2,
        OBJECT_FORWARD_PERM = 3,     // 1.2
        LOC_SYSTEM_EXCEPTION = 4,    // 1.2
        LOC_NEEDS_ADDRESSING_MODE = 5  // 1.2
    };

    CORBA::ULong request_id = 0;
    Status locate_status = UNKNOWN_OBJECT;

    void write(YV_CDR::OutputStream& out) const;
    static LocateReplyHeader read(YV_CDR::InputStream& in, Version version);
};

} // namespace YV_GIOP

#endif
