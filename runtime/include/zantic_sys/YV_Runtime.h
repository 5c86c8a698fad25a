// The in-process request path: how a client-side proxy has an operation
// served by a servant of the same process.
//
// invoke() builds a server request over the caller's argument list and
// result streamable, finds the servant's dispatch function for the operation
// with _lookup_dispatcher and calls it. The request takes the colocated path
// (the dispatch function works on the caller's values) or the request path
// (it copies them in and out as a reply would), as set_dispatch_path says;
// the default comes from the environment variable YV_DISPATCH_PATH
// ("request" or "colocated"), else colocated.
//
// Exceptions: CORBA exceptions reach the caller as thrown; any other
// exception becomes CORBA::UNKNOWN with the completion status that the
// dispatch function had reached. An operation the servant does not know
// raises BAD_OPERATION, a null servant OBJECT_NOT_EXIST.
#ifndef YV_RT_YV_RUNTIME_H
#define YV_RT_YV_RUNTIME_H

#include "CORBA/Types.h"
#include "CORBA/YV_ServerRequest.h"

class YV_Streamable;

namespace PortableServer {
class ServantBase;
} // namespace PortableServer

class YV_Runtime {
public:
    typedef CORBA::YV_ServerRequest::Path DispatchPath;
    static constexpr DispatchPath colocated = CORBA::YV_ServerRequest::colocated;
    static constexpr DispatchPath request_based = CORBA::YV_ServerRequest::request_based;

    static void set_dispatch_path(DispatchPath path);
    static DispatchPath dispatch_path();

    // `args`: the caller's arguments, each a named value whose any carries
    // the caller's streamable and whose flags give the direction (0: no
    // arguments). `result`: the caller's result streamable (0 for void).
    static void invoke(PortableServer::ServantBase* servant, const char* operation, CORBA::NVList_ptr args,
                       YV_Streamable* result);
};

#endif
