#include "YV_GIOP/ReplyHeader.h"

#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

namespace YV_GIOP {

void ReplyHeader::write(YV_CDR::OutputStream& out, Version version) const
{
    if (version.minor >= 2) {
        out.write_ulong(request_id);
        out.write_ulong(reply_status);
        service_contexts.write(out);
        return;
    }
    service_contexts.write(out);
    out.write_ulong(request_id);
    out.write_ulong(reply_status);
}

ReplyHeader ReplyHeader::read(YV_CDR::InputStream& in, Version version)
{
    ReplyHeader h;
    if (version.minor < 2)
        h.service_contexts = ServiceContextList::read(in);
    h.request_id = in.read_ulong();
    const CORBA::ULong status = in.read_ulong();
    if (status > (version.minor >= 2 ? NEEDS_ADDRESSING_MODE : LOCATION_FORWARD))
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
    h.reply_status = static_cast<Status>(status);
    if (version.minor >= 2)
        h.service_contexts = ServiceContextList::read(in);
    return h;
}

} // namespace YV_GIOP
