#include "zantic_sys/CORBA/ValueBase.h"

namespace CORBA {

ValueBase::~ValueBase() = default;

void ValueBase::_add_ref()
{
    ++m_refs;
}

void ValueBase::_remove_ref()
{
    if (--m_refs == 0)
        delete this;
}

ULong ValueBase::_refcount_value() const
{
    return m_refs;
}

ValueBase* ValueBase::_copy_value()
{
    return nullptr;
}

} // namespace CORBA
