// Dispatch functions of the operations the runtime's own skeletons serve
// (the standard _interface, _non_existent, the CORBA::Policy skeleton's):
// operations without arguments, on both dispatch paths.
#ifndef YV_RT_PORTABLESERVER_SERVE_OPERATION_H
#define YV_RT_PORTABLESERVER_SERVE_OPERATION_H

#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/CORBA/YV_ServerRequest.h"
#include "zantic_sys/YV_Cxx_NV/StackBasedNVList.h"

namespace YV_ORB {

// The caller's streamable of class S in the any `a`; MARSHAL if it is not.
template <class S>
S& caller_streamable(CORBA::Any* a)
{
    S* s = a ? S::_downcast(a->yv_get_streamable()) : nullptr;
    if (s == nullptr)
        throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
    return *s;
}

// Serves an operation whose result travels in a streamable of class
// ResultS (the caller's is a CallerS): on the colocated path the result
// goes into the caller's streamable, on the request path it goes back as
// the request sends results.
template <class CallerS, class ResultS, class Call>
void serve_operation(CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status, Call call)
{
    CORBA::NVList_ptr nvlist = nullptr;
    CORBA::Any* any = nullptr;
    if (request->yv_setup(nvlist, any)) {
        CallerS& result = caller_streamable<CallerS>(any);
        status = CORBA::COMPLETED_MAYBE;
        result.extract() = call();
        status = CORBA::COMPLETED_YES;
        request->set_result(*any);
        request->yv_respond();
        return;
    }
    YV_Cxx_NV::StackBasedNVList args(0, nullptr);
    request->arguments(&args);
    ResultS result;
    CORBA::Any result_any(&result, YV_SHALLOW_COPY);
    status = CORBA::COMPLETED_MAYBE;
    result.extract() = call();
    status = CORBA::COMPLETED_YES;
    request->set_result(result_any);
    request->yv_respond();
}

// Serves an operation without a result.
template <class Call>
void serve_void_operation(CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status, Call call)
{
    CORBA::NVList_ptr nvlist = nullptr;
    CORBA::Any* any = nullptr;
    if (request->yv_setup(nvlist, any)) {
        status = CORBA::COMPLETED_MAYBE;
        call();
        status = CORBA::COMPLETED_YES;
        request->yv_respond();
        return;
    }
    YV_Cxx_NV::StackBasedNVList args(0, nullptr);
    request->arguments(&args);
    CORBA::Any result_any(CORBA::_tc_void, nullptr);
    status = CORBA::COMPLETED_MAYBE;
    call();
    status = CORBA::COMPLETED_YES;
    request->set_result(result_any);
    request->yv_respond();
}

} // namespace YV_ORB

#endif
