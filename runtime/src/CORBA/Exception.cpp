#include "zantic_sys/CORBA/Exception.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace CORBA {

Exception::~Exception() = default;

const char* Exception::what() const noexcept
{
    return _rep_id();
}

UserException::~UserException() = default;

UserException* UserException::_downcast(Exception* e)
{
    return dynamic_cast<UserException*>(e);
}

SystemException::~SystemException() = default;

SystemException* SystemException::_downcast(Exception* e)
{
    return dynamic_cast<SystemException*>(e);
}

} // namespace CORBA
