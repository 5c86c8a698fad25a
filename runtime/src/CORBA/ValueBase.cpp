#include "zantic_sys/CORBA/ValueBase.h"

#include "zantic_sys/CORBA/SystemException.h"

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

namespace CORBA {

const char* const* ValueBase::_yv_type_ids(ULong& count) const
{
    count = 0;
    return nullptr;
}

Boolean ValueBase::_yv_is_chunked() const
{
    return false;
}

void ValueBase::_yv_marshal_state(YV_CDR::OutputStream&) const
{
    throw MARSHAL(0, COMPLETED_NO);
}

void ValueBase::_yv_unmarshal_state(YV_CDR::InputStream&)
{
    throw MARSHAL(0, COMPLETED_NO);
}

} // namespace CORBA
