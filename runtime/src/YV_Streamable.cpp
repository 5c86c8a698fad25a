#include "zantic_sys/YV_Streamable.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/TypeCode.h"

YV_Streamable::~YV_Streamable() = default;

CORBA::TypeCode_ptr YV_Streamable::yv_type() const
{
    return CORBA::_tc_null;
}

void YV_Streamable::yv_write(YV_CDR::OutputStream&) const
{
    throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
}

void YV_Streamable::yv_read(YV_CDR::InputStream&)
{
    throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
}

void YV_Streamable::yv_type_mismatch()
{
    throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
}
