// The TIE class of CORBA::Policy, in the shape of a generated one: the TIE
// classes of IDL interfaces derived from Policy derive from it.
#ifndef YV_RT_POA_CORBA_POLICY_TIE_H
#define YV_RT_POA_CORBA_POLICY_TIE_H

#include "../YV_POA_TieBase.h"
#include "Policy.h"

template <class T>
class POA_CORBA_Policy_tie : public virtual POA_CORBA::Policy, public virtual YV_POA_TieBase<T> {
public:
    POA_CORBA_Policy_tie(T& t) : YV_POA_TieBase<T>(t) {}
    POA_CORBA_Policy_tie(T& t, PortableServer::POA_ptr poa) : YV_POA_TieBase<T>(t, poa) {}
    POA_CORBA_Policy_tie(T* tp, CORBA::Boolean release = 1) : YV_POA_TieBase<T>(tp, release) {}
    POA_CORBA_Policy_tie(T* tp, PortableServer::POA_ptr poa, CORBA::Boolean release = 1)
        : YV_POA_TieBase<T>(tp, poa, release)
    {
    }
    POA_CORBA_Policy_tie(const POA_CORBA_Policy_tie&) = delete;
    POA_CORBA_Policy_tie& operator=(const POA_CORBA_Policy_tie&) = delete;

    CORBA::PolicyType policy_type() override { return YV_POA_TieBase<T>::_yv_m_ptr->policy_type(); }
    CORBA::Policy_ptr copy() override { return YV_POA_TieBase<T>::_yv_m_ptr->copy(); }
    void destroy() override { YV_POA_TieBase<T>::_yv_m_ptr->destroy(); }

protected:
    POA_CORBA_Policy_tie() {}
};

#endif
