// The header of a Request message, in the layout of each GIOP version:
//
//   1.0  service contexts, request id, response_expected, object key,
//        operation, principal
//   1.1  the same, with three reserved octets after response_expected
//   1.2  request id, response flags, three reserved octets, target address,
//        operation, service contexts; the body that follows is aligned on 8
#ifndef YV_GIOP_REQUESTHEADER_H
#define YV_GIOP_REQUESTHEADER_H

#include "YV_GIOP/MessageHeader.h"
#include "YV_GIOP/ServiceContextList.h"
#include "YV_GIOP/TargetAddress.h"

#include <string>
#include <vector>

namespace YV_GIOP {

struct RequestHeader {
    // Response flags of GIOP 1.2: no reply (oneway), or a reply after the
    // target has served the call. 1.0 and 1.1 carry only "response expected".
    static constexpr CORBA::Octet sync_none = 0x00;
    static constexpr CORBA::Octet sync_with_server = 0x01;
    static constexpr CORBA::Octet sync_with_target = 0x03;

    CORBA::ULong request_id = 0;
    CORBA::Octet response_flags = sync_with_target;
    TargetAddress target;
    std::string operation;
    ServiceContextList service_contexts;
    std::vector<CORBA::Octet> requesting_principal;  // 1.0 and 1.1 only

    bool response_expected() const { return (response_flags & 0x01) != 0; }

    // Writes the header for `version` (1.0 and 1.1 write the object key,
    // which must then be a KeyAddr target). Does not align the body.
    void write(YV_CDR::OutputStream& out, Version version) const;
    // The same from the caller's values, without copying them into a header.
    static void write(YV_CDR::OutputStream& out, Version version, CORBA::ULong request_id,
                      CORBA::Octet response_flags, const TargetAddress& target, const char* operation,
                      const ServiceContextList& service_contexts,
                      const std::vector<CORBA::Octet>& requesting_principal);
    static RequestHeader read(YV_CDR::InputStream& in, Version version);
};

} // namespace YV_GIOP

#endif
