// A request from a caller of this process, served on the caller's
// streamables: on the colocated path the dispatch function takes them as
// they are; on the request path arguments() deep-copies the in and inout
// values into the dispatch function's streamables (the lists must agree in
// length, directions and streamable classes, else MARSHAL) and yv_respond
// copies the inout and out values and the result back. Nothing is copied
// back when the servant throws.
#ifndef YV_ORB_LOCALSERVERREQUEST_H
#define YV_ORB_LOCALSERVERREQUEST_H

#include "zantic_sys/CORBA/YV_ServerRequest.h"

#include <string>

namespace YV_ORB {

class LocalServerRequest : public CORBA::YV_ServerRequest {
public:
    // `args` are the caller's arguments (0: none); `result` carries the
    // caller's result streamable (0 or an empty any for a void operation).
    // `path` is colocated or request_based.
    LocalServerRequest(const char* operation, CORBA::NVList_ptr args, CORBA::Any* result, Path path);

    const char* operation() const override { return m_operation.c_str(); }
    bool yv_setup(CORBA::NVList_ptr& nvlist, CORBA::Any*& any) override;
    void arguments(CORBA::NVList_ptr nvlist) override;
    void set_result(const CORBA::Any& result) override;
    void yv_respond() override;

private:
    std::string m_operation;
    CORBA::NVList_ptr m_caller_args;
    CORBA::Any* m_caller_result;
    Path m_path;
    CORBA::NVList_ptr m_servant_args = nullptr;
    const YV_Streamable* m_servant_result = nullptr;
    bool m_result_set = false;
    CORBA::NVList m_no_args;
    CORBA::Any m_void_result;
};

} // namespace YV_ORB

#endif
