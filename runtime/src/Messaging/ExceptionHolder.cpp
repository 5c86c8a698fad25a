#include "zantic_sys/Messaging/ExceptionHolder.h"

#include "zantic_sys/CORBA/SystemException.h"

#include <utility>

namespace Messaging {

const YV_FWString ExceptionHolder::_yv_fw_type_id("IDL:omg.org/Messaging/ExceptionHolder:1.0");

ExceptionHolder::ExceptionHolder(std::exception_ptr e) : m_exception(std::move(e)) {}

ExceptionHolder::~ExceptionHolder() = default;

void ExceptionHolder::raise_exception()
{
    if (!m_exception)
        throw CORBA::BAD_INV_ORDER(0, CORBA::COMPLETED_NO);
    std::rethrow_exception(m_exception);
}

CORBA::Boolean ExceptionHolder::is_system_exception() const
{
    if (!m_exception)
        return false;
    try {
        std::rethrow_exception(m_exception);
    } catch (const CORBA::SystemException&) {
        return true;
    } catch (...) {
        return false;
    }
}

CORBA::ValueBase* ExceptionHolder::_copy_value()
{
    return new ExceptionHolder(m_exception);
}

ExceptionHolder* ExceptionHolder::_downcast(CORBA::ValueBase* v)
{
    return dynamic_cast<ExceptionHolder*>(v);
}

} // namespace Messaging
