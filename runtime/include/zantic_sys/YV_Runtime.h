// How a call on a servant of this process is served.
//
// invoke() builds a server request over the caller's argument list and
// result streamable, finds the servant's dispatch function for the operation
// with _lookup_dispatcher and calls it. The request takes one of three
// paths, as set_dispatch_path says:
//   colocated      the dispatch function works on the caller's values
//   request_based  it copies them in and out as a reply would
//   wire           the arguments are encoded as a GIOP request body, served
//                  by the request class that serves the network, and the
//                  reply is decoded into the caller's values (object
//                  references take this path through whole GIOP messages)
// The default comes from the environment variable YV_DISPATCH_PATH
// ("colocated", "request" or "wire"), else colocated.
//
// Exceptions: CORBA exceptions reach the caller as thrown (on the wire path
// as the reply carries them: a user exception the operation does not list
// becomes UNKNOWN); any other exception becomes CORBA::UNKNOWN with the
// completion status that the dispatch function had reached. An operation
// the servant does not know raises BAD_OPERATION, a null servant
// OBJECT_NOT_EXIST.
#ifndef YV_RT_YV_RUNTIME_H
#define YV_RT_YV_RUNTIME_H

#include "CORBA/Types.h"
#include "CORBA/YV_ServerRequest.h"

class YV_Streamable;

namespace PortableServer {
class ServantBase;
} // namespace PortableServer

namespace YV_Cxx {
struct Operation;
} // namespace YV_Cxx

class YV_Runtime {
public:
    typedef CORBA::YV_ServerRequest::Path DispatchPath;
    static constexpr DispatchPath colocated = CORBA::YV_ServerRequest::colocated;
    static constexpr DispatchPath request_based = CORBA::YV_ServerRequest::request_based;
    static constexpr DispatchPath wire = CORBA::YV_ServerRequest::wire;

    static void set_dispatch_path(DispatchPath path);
    static DispatchPath dispatch_path();

    // `args`: the caller's arguments, each a named value whose any carries
    // the caller's streamable and whose flags give the direction (0: no
    // arguments). `result`: the caller's result streamable (0 for void).
    static void invoke(PortableServer::ServantBase* servant, const char* operation, CORBA::NVList_ptr args,
                       YV_Streamable* result);
    // The same with what the caller knows of the operation (its user
    // exceptions travel on the wire path).
    static void invoke(PortableServer::ServantBase* servant, const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                       YV_Streamable* result);
};

#endif
