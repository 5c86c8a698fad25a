#include "YV_GIOP/LocateReplyHeader.h"

#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

namespace YV_GIOP {

void LocateReplyHeader::write(YV_CDR::OutputStream& out) const
{
    out.write_ulong(request_id);
    out.write_ulong(locate_status);
}

LocateReplyHeader LocateReplyHeader::read(YV_CDR::InputStream& in, Version version)
{
    LocateReplyHeader h;
    h.request_id = in.read_ulong();
    const CORBA::ULong status = in.read_ulong();
    if (status > (version.minor >= 2 ? LOC_NEEDS_ADDRESSING_MODE : OBJECT_FORWARD))
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
    h.locate_status = static_cast<Status>(status);
    return h;
}

} // namespace YV_GIOP
