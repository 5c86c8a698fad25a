#include "YV_ORB/LocalServerRequest.h"

#include "zantic_sys/CORBA/SystemException.h"

namespace YV_ORB {

using namespace CORBA;

namespace {

bool carries_in(Flags f)
{
    return (f & (ARG_IN | ARG_INOUT)) != 0;
}

bool carries_out(Flags f)
{
    return (f & (ARG_OUT | ARG_INOUT)) != 0;
}

Flags direction(Flags f)
{
    return f & (ARG_IN | ARG_OUT | ARG_INOUT);
}

// The streamable of an argument; MARSHAL when the any carries none.
YV_Streamable& streamable_of(NamedValue_ptr nv)
{
    YV_Streamable* s = nv->value() ? nv->value()->yv_get_streamable() : nullptr;
    if (s == nullptr)
        throw MARSHAL(0, COMPLETED_NO);
    return *s;
}

} // namespace

LocalServerRequest::LocalServerRequest(const char* operation, NVList_ptr args, Any* result, Path path)
    : m_operation(operation ? operation : ""), m_caller_args(args ? args : &m_no_args),
      m_caller_result(result ? result : &m_void_result), m_path(path)
{
}

bool LocalServerRequest::yv_setup(NVList_ptr& nvlist, Any*& any)
{
    if (m_path != colocated)
        return false;
    nvlist = m_caller_args;
    any = m_caller_result;
    return true;
}

void LocalServerRequest::arguments(NVList_ptr nvlist)
{
    if (m_path == colocated || m_servant_args != nullptr || nvlist == nullptr)
        throw BAD_INV_ORDER(0, COMPLETED_NO);
    if (nvlist->count() != m_caller_args->count())
        throw MARSHAL(0, COMPLETED_NO);
    for (ULong i = 0; i < nvlist->count(); ++i) {
        NamedValue_ptr mine = nvlist->item(i);
        NamedValue_ptr theirs = m_caller_args->item(i);
        if (direction(mine->flags()) != direction(theirs->flags()))
            throw MARSHAL(0, COMPLETED_NO);
        if (carries_in(mine->flags()))
            streamable_of(mine).yv_copy_value(streamable_of(theirs));
    }
    m_servant_args = nvlist;
}

void LocalServerRequest::set_result(const Any& result)
{
    m_servant_result = result.yv_get_streamable();
    m_result_set = true;
}

void LocalServerRequest::yv_respond()
{
    yv_mark_responded();
    if (m_path == colocated)
        return;
    if (m_servant_args == nullptr)
        throw BAD_INV_ORDER(0, COMPLETED_YES);
    for (ULong i = 0; i < m_servant_args->count(); ++i) {
        NamedValue_ptr mine = m_servant_args->item(i);
        if (carries_out(mine->flags()))
            streamable_of(m_caller_args->item(i)).yv_copy_value(streamable_of(mine));
    }
    YV_Streamable* wanted = m_caller_result->yv_get_streamable();
    const YV_Streamable* given = m_result_set ? m_servant_result : nullptr;
    if ((wanted == nullptr) != (given == nullptr))
        throw MARSHAL(0, COMPLETED_YES);
    if (wanted != nullptr)
        wanted->yv_copy_value(*given);
}

} // namespace YV_ORB
