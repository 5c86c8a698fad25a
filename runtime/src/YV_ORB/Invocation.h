// The client side of a call: where a request on a reference goes and how
// its arguments and reply travel.
//
// An object of this process is served in process, on the dispatch path the
// runtime is set to: colocated or request-based (YV_Runtime), or through
// the wire encoding, where the call becomes a GIOP Request message that the
// server dispatcher serves as if it came from the network, and its Reply
// is read back into the caller's streamables. Objects elsewhere are called
// through the transport. Forwards (LOCATION_FORWARD) are followed.
#ifndef YV_ORB_INVOCATION_H
#define YV_ORB_INVOCATION_H

#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"
#include "YV_GIOP/ServiceContextList.h"
#include "YV_GIOP/TargetAddress.h"
#include "zantic_sys/CORBA/NVList.h"
#include "zantic_sys/YV_Cxx/Operation.h"

#include <memory>
#include <string>
#include <vector>

class YV_Streamable;

namespace PortableServer {
class POA;
class ServantBase;
} // namespace PortableServer

namespace YV_ORB {

class Reference;

class Invocation {
public:
    // `encoded`: objects of this process too are served through the wire
    // encoding, whatever the dispatch path (for callers whose streamables
    // are not the servant's classes).
    static void invoke(const std::shared_ptr<Reference>& reference, const YV_Cxx::Operation& op,
                       CORBA::NVList_ptr args, YV_Streamable* result, bool encoded = false);

    // Serves a call on `servant` through the wire encoding of its arguments
    // and reply, without messages.
    static void invoke_encoded(PortableServer::ServantBase* servant, const YV_Cxx::Operation& op,
                               CORBA::NVList_ptr args, YV_Streamable* result);

    // A Request message for `op` (the in and inout values of `args`).
    static YV_GIOP::MessageBuilder request(YV_GIOP::Version version, CORBA::ULong request_id,
                                           const YV_GIOP::TargetAddress& target, const YV_Cxx::Operation& op,
                                           CORBA::NVList_ptr args, const YV_GIOP::ServiceContextList& contexts);

    // What a reply asks the caller to do after read_reply.
    enum Outcome { done, forward, readdress };
    // Reads the body of a reply of `status`: the result and the inout and
    // out values into the caller's streamables, or raises the exception it
    // carries. Forwards give their reference in `forward_to`; a request for
    // another addressing disposition gives it in `disposition`.
    static Outcome read_reply(YV_CDR::InputStream& body, YV_GIOP::ReplyHeader::Status status,
                              const YV_Cxx::Operation& op, CORBA::NVList_ptr args, YV_Streamable* result,
                              std::shared_ptr<Reference>& forward_to, CORBA::Short& disposition);

private:
    static void write_arguments(YV_CDR::OutputStream& out, CORBA::NVList_ptr args);
    static bool has_in_values(CORBA::NVList_ptr args);
    static void invoke_local(PortableServer::POA* poa, const std::string& object_id, const YV_Cxx::Operation& op,
                             CORBA::NVList_ptr args, YV_Streamable* result);
    static Outcome invoke_loopback(const Reference& target, const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                                   YV_Streamable* result, std::shared_ptr<Reference>& forward_to);
    static Outcome invoke_remote(const Reference& target, const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                                 YV_Streamable* result, std::shared_ptr<Reference>& forward_to);
};

} // namespace YV_ORB

#endif
