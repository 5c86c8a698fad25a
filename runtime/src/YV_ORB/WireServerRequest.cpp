#include "YV_ORB/WireServerRequest.h"

#include "zantic_sys/CORBA/SystemException.h"

namespace YV_ORB {

using namespace CORBA;

namespace {

YV_Streamable& streamable_of(NamedValue_ptr nv, CompletionStatus completed)
{
    YV_Streamable* s = nv->value() ? nv->value()->yv_get_streamable() : nullptr;
    if (s == nullptr)
        throw MARSHAL(0, completed);
    return *s;
}

} // namespace

WireServerRequest::WireServerRequest(const std::string& operation, YV_CDR::InputStream& in, ReplyBuilder* reply)
    : m_operation(operation), m_in(in), m_reply(reply)
{
}

bool WireServerRequest::yv_setup(NVList_ptr&, Any*&)
{
    return false;
}

void WireServerRequest::arguments(NVList_ptr nvlist)
{
    if (m_args != nullptr || nvlist == nullptr)
        throw BAD_INV_ORDER(0, COMPLETED_NO);
    m_args = nvlist;
    for (ULong i = 0; i < nvlist->count(); ++i) {
        NamedValue_ptr nv = nvlist->item(i);
        if ((nv->flags() & (ARG_IN | ARG_INOUT)) != 0)
            streamable_of(nv, COMPLETED_NO).yv_read(m_in);
    }
}

void WireServerRequest::set_result(const Any& result)
{
    m_result = result.yv_get_streamable();
}

void WireServerRequest::yv_respond()
{
    yv_mark_responded();
    if (m_args == nullptr)
        throw BAD_INV_ORDER(0, COMPLETED_YES);
    if (m_reply == nullptr)
        return;
    bool with_body = m_result != nullptr;
    for (ULong i = 0; i < m_args->count() && !with_body; ++i)
        with_body = (m_args->item(i)->flags() & (ARG_OUT | ARG_INOUT)) != 0;
    YV_CDR::OutputStream& out = m_reply->begin(YV_GIOP::ReplyHeader::NO_EXCEPTION, with_body);
    if (m_result != nullptr)
        m_result->yv_write(out);
    for (ULong i = 0; i < m_args->count(); ++i) {
        NamedValue_ptr nv = m_args->item(i);
        if ((nv->flags() & (ARG_OUT | ARG_INOUT)) != 0)
            streamable_of(nv, COMPLETED_YES).yv_write(out);
    }
}

} // namespace YV_ORB
