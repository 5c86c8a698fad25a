// The policies of the POA: each is a policy of one policy type holding one
// value of its enumeration. POA::create_*_policy makes them.
#ifndef YV_RT_PORTABLESERVER_VALUEPOLICY_H
#define YV_RT_PORTABLESERVER_VALUEPOLICY_H

#include "../CORBA/Policy.h"

namespace PortableServer {

enum ThreadPolicyValue { ORB_CTRL_MODEL, SINGLE_THREAD_MODEL, MAIN_THREAD_MODEL };
enum LifespanPolicyValue { TRANSIENT, PERSISTENT };
enum IdUniquenessPolicyValue { UNIQUE_ID, MULTIPLE_ID };
enum IdAssignmentPolicyValue { USER_ID, SYSTEM_ID };
enum ImplicitActivationPolicyValue { IMPLICIT_ACTIVATION, NO_IMPLICIT_ACTIVATION };
enum ServantRetentionPolicyValue { RETAIN, NON_RETAIN };
enum RequestProcessingPolicyValue { USE_ACTIVE_OBJECT_MAP_ONLY, USE_DEFAULT_SERVANT, USE_SERVANT_MANAGER };

const CORBA::PolicyType THREAD_POLICY_ID = 16;
const CORBA::PolicyType LIFESPAN_POLICY_ID = 17;
const CORBA::PolicyType ID_UNIQUENESS_POLICY_ID = 18;
const CORBA::PolicyType ID_ASSIGNMENT_POLICY_ID = 19;
const CORBA::PolicyType IMPLICIT_ACTIVATION_POLICY_ID = 20;
const CORBA::PolicyType SERVANT_RETENTION_POLICY_ID = 21;
const CORBA::PolicyType REQUEST_PROCESSING_POLICY_ID = 22;

// A policy of type `Id` with a value of enumeration `Value`.
template <class Value, CORBA::PolicyType Id>
class YV_ValuePolicy : public CORBA::Policy {
public:
    typedef YV_ValuePolicy* _ptr_type;

    explicit YV_ValuePolicy(Value value) : m_value(value) {}

    Value value() const { return m_value; }
    CORBA::PolicyType policy_type() override { return Id; }
    CORBA::Policy_ptr copy() override { return new YV_ValuePolicy(m_value); }

    static YV_ValuePolicy* _duplicate(YV_ValuePolicy* p)
    {
        if (p != nullptr)
            p->_yv_add_ref();
        return p;
    }
    static YV_ValuePolicy* _narrow(CORBA::Object_ptr obj) { return _duplicate(dynamic_cast<YV_ValuePolicy*>(obj)); }
    static YV_ValuePolicy* _unchecked_narrow(CORBA::Object_ptr obj) { return _narrow(obj); }
    static YV_ValuePolicy* _nil() { return nullptr; }

private:
    ~YV_ValuePolicy() override = default;

    Value m_value;
};

#define YV_POA_POLICY(Name, Value, Id)                                   \
    typedef YV_ValuePolicy<Value, Id> Name;                              \
    typedef Name* Name##_ptr;                                            \
    typedef YV_Cxx::ObjRef_var<Name> Name##_var;                         \
    typedef YV_Cxx::ObjRef_out<Name> Name##_out;
YV_POA_POLICY(ThreadPolicy, ThreadPolicyValue, THREAD_POLICY_ID)
YV_POA_POLICY(LifespanPolicy, LifespanPolicyValue, LIFESPAN_POLICY_ID)
YV_POA_POLICY(IdUniquenessPolicy, IdUniquenessPolicyValue, ID_UNIQUENESS_POLICY_ID)
YV_POA_POLICY(IdAssignmentPolicy, IdAssignmentPolicyValue, ID_ASSIGNMENT_POLICY_ID)
YV_POA_POLICY(ImplicitActivationPolicy, ImplicitActivationPolicyValue, IMPLICIT_ACTIVATION_POLICY_ID)
YV_POA_POLICY(ServantRetentionPolicy, ServantRetentionPolicyValue, SERVANT_RETENTION_POLICY_ID)
YV_POA_POLICY(RequestProcessingPolicy, RequestProcessingPolicyValue, REQUEST_PROCESSING_POLICY_ID)
#undef YV_POA_POLICY

} // namespace PortableServer

#endif
