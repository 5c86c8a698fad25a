// The header of a LocateRequest message (also the whole message): a request
// id and the target (1.0 and 1.1: its object key; 1.2: a target address).
#ifndef YV_GIOP_LOCATEREQUESTHEADER_H
#define YV_GIOP_LOCATEREQUESTHEADER_H

#include "YV_GIOP/MessageHeader.h"
#include "YV_GIOP/TargetAddress.h"

namespace YV_GIOP {

struct LocateRequestHeader {
    CORBA::ULong request_id = 0;
    TargetAddress target;

    void write(YV_CDR::OutputStream& out, Version version) const;
    static LocateRequestHeader read(YV_CDR::InputStream& in, Version version);
};

} // namespace YV_GIOP

#endif
