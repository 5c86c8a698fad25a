#include "zantic_sys/CORBA/Exception.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

namespace CORBA {

Exception::~Exception() = default;

const char* Exception::what() const noexcept
{
    return _rep_id();
}

void Exception::_yv_write(YV_CDR::OutputStream& out) const
{
    out.write_string(_rep_id());
    _yv_write_members(out);
}

void Exception::_yv_write_members(YV_CDR::OutputStream&) const
{
    throw MARSHAL(0, COMPLETED_MAYBE);
}

UserException::~UserException() = default;

UserException* UserException::_downcast(Exception* e)
{
    return dynamic_cast<UserException*>(e);
}

const UserException* UserException::_downcast(const Exception* e)
{
    return dynamic_cast<const UserException*>(e);
}

SystemException::~SystemException() = default;

SystemException* SystemException::_downcast(Exception* e)
{
    return dynamic_cast<SystemException*>(e);
}

const SystemException* SystemException::_downcast(const Exception* e)
{
    return dynamic_cast<const SystemException*>(e);
}

void SystemException::_yv_write_members(YV_CDR::OutputStream& out) const
{
    out.write_ulong(m_minor);
    out.write_ulong(static_cast<ULong>(m_completed));
}

} // namespace CORBA
