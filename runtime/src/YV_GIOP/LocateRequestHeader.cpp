#include "YV_GIOP/LocateRequestHeader.h"

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_GIOP {

void LocateRequestHeader::write(YV_CDR::OutputStream& out, Version version) const
{
    out.write_ulong(request_id);
    if (version.minor >= 2) {
        target.write(out);
        return;
    }
    if (target.disposition != TargetAddress::KeyAddr)
        throw CORBA::INTERNAL(0, CORBA::COMPLETED_NO);
    write_octet_seq(out, target.written_key());
}

LocateRequestHeader LocateRequestHeader::read(YV_CDR::InputStream& in, Version version)
{
    LocateRequestHeader h;
    h.request_id = in.read_ulong();
    if (version.minor >= 2)
        h.target = TargetAddress::read(in);
    else
        h.target.object_key = read_octet_seq(in);
    return h;
}

} // namespace YV_GIOP
