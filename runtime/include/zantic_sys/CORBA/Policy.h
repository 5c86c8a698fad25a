// Policies: local objects that say how an object adapter (or the ORB)
// behaves. A POA takes a list of them when it is made; each policy class
// names its kind by a policy type.
#ifndef YV_RT_CORBA_POLICY_H
#define YV_RT_CORBA_POLICY_H

#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"
#include "../YV_Cxx/Sequence.h"
#include "../YV_Cxx/Var_out.h"
#include "../YV_Cxx/Var_var.h"
#include "Object.h"

namespace CORBA {

typedef ULong PolicyType;
typedef PolicyType& PolicyType_out;

class Policy;
typedef Policy* Policy_ptr;

// The object adapter's policies are local objects; an IDL interface may
// also derive from Policy, whose objects are then served (the skeleton is
// POA_CORBA::Policy) and reached through references like any other.
class Policy : public virtual Object {
public:
    virtual PolicyType policy_type() = 0;
    // A new policy of the same kind and value.
    virtual Policy_ptr copy() = 0;
    virtual void destroy() {}

    static Policy_ptr _duplicate(Policy_ptr p)
    {
        if (p != nullptr)
            p->_yv_add_ref();
        return p;
    }
    // A reference of another kind that is a Policy becomes a proxy
    // (YV_Gen_DynamicProxy_Policy).
    static Policy_ptr _narrow(Object_ptr obj);
    static Policy_ptr _unchecked_narrow(Object_ptr obj);
    static Policy_ptr _nil() { return nullptr; }

    static const YV_FWString _yv_fw_type_id;

protected:
    Policy() = default;
    ~Policy() override = default;
};

typedef YV_Cxx::ObjRef_var<Policy> Policy_var;
typedef YV_Cxx::ObjRef_out<Policy> Policy_out;
typedef YV_Cxx::UnboundedSequence<Policy_var> PolicyList;
typedef YV_Cxx::Seq_var<PolicyList> PolicyList_var;
typedef YV_Cxx::Seq_out<PolicyList> PolicyList_out;

} // namespace CORBA

#endif
