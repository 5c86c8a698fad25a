#include "YV_GIOP/RequestHeader.h"

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_GIOP {

void RequestHeader::write(YV_CDR::OutputStream& out, Version version) const
{
    write(out, version, request_id, response_flags, target, operation.c_str(), service_contexts,
          requesting_principal);
}

void RequestHeader::write(YV_CDR::OutputStream& out, Version version, CORBA::ULong request_id,
                          CORBA::Octet response_flags, const TargetAddress& target, const char* operation,
                          const ServiceContextList& service_contexts,
                          const std::vector<CORBA::Octet>& requesting_principal)
{
    if (version.minor >= 2) {
        out.write_ulong(request_id);
        out.write_octet(response_flags);
        const CORBA::Octet reserved[3] = {0, 0, 0};
        out.write_octet_array(reserved, 3);
        target.write(out);
        out.write_string(operation);
        service_contexts.write(out);
        return;
    }
    if (target.disposition != TargetAddress::KeyAddr)
        throw CORBA::INTERNAL(0, CORBA::COMPLETED_NO);
    service_contexts.write(out);
    out.write_ulong(request_id);
    out.write_boolean((response_flags & 0x01) != 0);
    if (version.minor == 1) {
        const CORBA::Octet reserved[3] = {0, 0, 0};
        out.write_octet_array(reserved, 3);
    }
    write_octet_seq(out, target.written_key());
    out.write_string(operation);
    write_octet_seq(out, requesting_principal);
}

RequestHeader RequestHeader::read(YV_CDR::InputStream& in, Version version)
{
    RequestHeader h;
    if (version.minor >= 2) {
        h.request_id = in.read_ulong();
        h.response_flags = in.read_octet();
        in.skip(3);
        h.target = TargetAddress::read(in);
        h.operation = read_text(in);
        h.service_contexts = ServiceContextList::read(in);
        return h;
    }
    h.service_contexts = ServiceContextList::read(in);
    h.request_id = in.read_ulong();
    h.response_flags = in.read_boolean() ? sync_with_target : sync_none;
    if (version.minor == 1)
        in.skip(3);
    h.target.object_key = read_octet_seq(in);
    h.operation = read_text(in);
    h.requesting_principal = read_octet_seq(in);
    return h;
}

} // namespace YV_GIOP
