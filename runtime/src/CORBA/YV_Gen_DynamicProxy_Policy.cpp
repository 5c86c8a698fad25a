#include "zantic_sys/CORBA/YV_Gen_DynamicProxy_Policy.h"

#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/CallArguments.h"
#include "zantic_sys/YV_Cxx/Operation.h"
#include "zantic_sys/YV_Cxx/RefStreamable.h"

namespace CORBA {

YV_Gen_DynamicProxy_Policy::~YV_Gen_DynamicProxy_Policy() = default;

PolicyType YV_Gen_DynamicProxy_Policy::policy_type()
{
    static const YV_Cxx::Operation op = {"_get_policy_type", false, nullptr, 0};
    PolicyType result = PolicyType();
    YV_Cxx::BasicStreamable<PolicyType> s(&result);
    YV_Cxx::CallArguments::invoke(*this, op, "", nullptr, &s);
    return result;
}

Policy_ptr YV_Gen_DynamicProxy_Policy::copy()
{
    static const YV_Cxx::Operation op = {"copy", false, nullptr, 0};
    Policy_ptr result = nullptr;
    YV_Cxx::ObjRefStreamable<Policy> s(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments::invoke(*this, op, "", nullptr, &s);
    return result;
}

void YV_Gen_DynamicProxy_Policy::destroy()
{
    static const YV_Cxx::Operation op = {"destroy", false, nullptr, 0};
    YV_Cxx::CallArguments::invoke(*this, op, "", nullptr, nullptr);
}

} // namespace CORBA
