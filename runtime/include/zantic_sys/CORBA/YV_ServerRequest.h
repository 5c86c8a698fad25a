// A request as a dispatch function sees it. The runtime has one class per
// way a request arrives; the generated dispatch functions use only this
// interface:
//
// Colocated path (a call from this process, served on the caller's own
// values): yv_setup answers true and hands the dispatch function the
// caller's argument list and result any; the servant works on the caller's
// values directly.
//
// Request path: yv_setup answers false; the dispatch function builds its own
// argument list of streamables over its local variables, and arguments()
// fills in the in and inout values (copied from a caller of this process,
// or read from a GIOP request body). set_result records the result's any;
// yv_respond sends the result and the inout and out values back (copied to
// the caller, or written into a GIOP reply).
#ifndef YV_RT_CORBA_YV_SERVERREQUEST_H
#define YV_RT_CORBA_YV_SERVERREQUEST_H

#include "Any.h"
#include "NVList.h"
#include "Types.h"

namespace CORBA {

class YV_ServerRequest {
public:
    // How a call from this process is served: on the caller's values, by
    // copies of them, or through the GIOP encoding of request and reply.
    enum Path { colocated, request_based, wire };

    virtual ~YV_ServerRequest();
    YV_ServerRequest(const YV_ServerRequest&) = delete;
    YV_ServerRequest& operator=(const YV_ServerRequest&) = delete;

    virtual const char* operation() const = 0;

    // Colocated path: sets `nvlist` to the caller's arguments and `any` to
    // the any that receives the result, and answers true. Request path:
    // answers false and changes nothing.
    virtual bool yv_setup(NVList_ptr& nvlist, Any*& any) = 0;
    // Takes the dispatch function's argument list and fills its in and inout
    // values (MARSHAL when they do not fit the list).
    virtual void arguments(NVList_ptr nvlist) = 0;
    // Records the result's any (its streamable stays the dispatch
    // function's until yv_respond).
    virtual void set_result(const Any& result) = 0;
    // Completes the request: the result and the inout and out values go
    // back to the caller.
    virtual void yv_respond() = 0;
    YV_ORB_ptr yv_get_orb();

    bool yv_responded() const { return m_responded; }

protected:
    YV_ServerRequest() = default;
    // yv_respond of derived classes starts with it: BAD_INV_ORDER when the
    // request was answered already.
    void yv_mark_responded();

private:
    bool m_responded = false;
};

} // namespace CORBA

#endif
