// A request as a dispatch function sees it, served in process.
//
// Colocated path: yv_setup answers true and hands the dispatch function the
// caller's own argument list and result any; the servant works on the
// caller's values directly.
//
// Request path: yv_setup answers false; the dispatch function builds its own
// argument list, and arguments() copies the in and inout values of the
// caller into it. yv_respond copies the inout and out values and the result
// (given by set_result) back into the caller's streamables, as a reply would.
#ifndef YV_RT_CORBA_YV_SERVERREQUEST_H
#define YV_RT_CORBA_YV_SERVERREQUEST_H

#include "Any.h"
#include "NVList.h"
#include "Types.h"

#include <string>

namespace CORBA {

class YV_ServerRequest {
public:
    enum Path { colocated, request_based };

    // `args` are the caller's arguments (0: none); `result` carries the
    // caller's result streamable (0 or an empty any for a void operation).
    YV_ServerRequest(const char* operation, NVList_ptr args, Any* result, Path path);
    YV_ServerRequest(const YV_ServerRequest&) = delete;
    YV_ServerRequest& operator=(const YV_ServerRequest&) = delete;

    const char* operation() const { return m_operation.c_str(); }
    Path path() const { return m_path; }

    // Colocated path: sets `nvlist` to the caller's arguments and `any` to
    // the any that receives the result, and answers true. Request path:
    // answers false and changes nothing.
    bool yv_setup(NVList_ptr& nvlist, Any*& any);
    // Takes the dispatch function's argument list and copies the caller's in
    // and inout values into it. The lists must agree in length and, item by
    // item, in direction and streamable class (else MARSHAL).
    void arguments(NVList_ptr nvlist);
    // Records the result's any (its streamable stays the dispatch
    // function's until yv_respond).
    void set_result(const Any& result);
    // Completes the request. Request path: copies the inout and out values
    // and the result back to the caller.
    void yv_respond();
    YV_ORB_ptr yv_get_orb();

    bool yv_responded() const { return m_responded; }

private:
    std::string m_operation;
    NVList_ptr m_caller_args;
    Any* m_caller_result;
    Path m_path;
    NVList_ptr m_servant_args = nullptr;
    const YV_Streamable* m_servant_result = nullptr;
    bool m_result_set = false;
    bool m_responded = false;
    NVList m_no_args;
    Any m_void_result;
};

} // namespace CORBA

#endif
