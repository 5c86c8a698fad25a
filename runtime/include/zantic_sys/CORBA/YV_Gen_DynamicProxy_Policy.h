// The proxy of a policy served as an object: a reference that forwards
// policy_type, copy and destroy to its target through the runtime.
#ifndef YV_RT_CORBA_YV_GEN_DYNAMICPROXY_POLICY_H
#define YV_RT_CORBA_YV_GEN_DYNAMICPROXY_POLICY_H

#include "Policy.h"

namespace CORBA {

class YV_Gen_DynamicProxy_Policy : public virtual Policy {
public:
    explicit YV_Gen_DynamicProxy_Policy(Object_ptr target) : Object(target) {}

    PolicyType policy_type() override;
    Policy_ptr copy() override;
    void destroy() override;

protected:
    ~YV_Gen_DynamicProxy_Policy() override;
};

} // namespace CORBA

#endif
