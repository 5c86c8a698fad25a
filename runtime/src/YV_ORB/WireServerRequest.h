// A request whose arguments come encoded (the body of a GIOP request):
// arguments() reads each in and inout value with its streamable's yv_read,
// yv_respond writes the result and the inout and out values, in that order,
// into the reply. A oneway request has no reply to write.
#ifndef YV_ORB_WIRESERVERREQUEST_H
#define YV_ORB_WIRESERVERREQUEST_H

#include "YV_ORB/ReplyBuilder.h"
#include "zantic_sys/CORBA/YV_ServerRequest.h"
#include "zantic_sys/YV_CDR/InputStream.h"

#include <string>

namespace YV_ORB {

class WireServerRequest : public CORBA::YV_ServerRequest {
public:
    // `in` is positioned at the first argument; `reply` is 0 for oneway.
    WireServerRequest(const std::string& operation, YV_CDR::InputStream& in, ReplyBuilder* reply);

    const char* operation() const override { return m_operation.c_str(); }
    bool yv_setup(CORBA::NVList_ptr& nvlist, CORBA::Any*& any) override;
    void arguments(CORBA::NVList_ptr nvlist) override;
    void set_result(const CORBA::Any& result) override;
    void yv_respond() override;

private:
    std::string m_operation;
    YV_CDR::InputStream& m_in;
    ReplyBuilder* m_reply;
    CORBA::NVList_ptr m_args = nullptr;
    const YV_Streamable* m_result = nullptr;
};

} // namespace YV_ORB

#endif
