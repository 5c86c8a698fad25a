#include "zantic_sys/CORBA/ValueFactoryBase.h"

namespace CORBA {

ValueFactoryBase::~ValueFactoryBase() = default;

void ValueFactoryBase::_add_ref()
{
    ++m_refs;
}

void ValueFactoryBase::_remove_ref()
{
    if (--m_refs == 0)
        delete this;
}

} // namespace CORBA
