// Type codes in CDR. Until the type codes read and write their own form,
// they do not travel.
#include "zantic_sys/YV_Cxx/RefMarshal.h"

namespace YV_Cxx {

void Marshal<Ref_var<CORBA::TypeCode, ObjRefTraits<CORBA::TypeCode>>>::write(YV_CDR::OutputStream&, CORBA::TypeCode_ptr)
{
    throw CORBA::NO_IMPLEMENT(0, CORBA::COMPLETED_NO);
}

CORBA::TypeCode_ptr Marshal<Ref_var<CORBA::TypeCode, ObjRefTraits<CORBA::TypeCode>>>::read_reference(YV_CDR::InputStream&)
{
    throw CORBA::NO_IMPLEMENT(0, CORBA::COMPLETED_NO);
}

} // namespace YV_Cxx
