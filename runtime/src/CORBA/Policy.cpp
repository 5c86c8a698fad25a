#include "zantic_sys/CORBA/Policy.h"

#include "zantic_sys/CORBA/YV_Gen_DynamicProxy_Policy.h"
#include "zantic_sys/YV_Cxx/narrow_reference.h"

namespace CORBA {

const YV_FWString Policy::_yv_fw_type_id("IDL:omg.org/CORBA/Policy:1.0");

Policy_ptr Policy::_narrow(Object_ptr obj)
{
    return YV_Cxx::narrow_reference<Policy, YV_Gen_DynamicProxy_Policy>(obj);
}

Policy_ptr Policy::_unchecked_narrow(Object_ptr obj)
{
    return YV_Cxx::unchecked_narrow_reference<Policy, YV_Gen_DynamicProxy_Policy>(obj);
}

} // namespace CORBA
