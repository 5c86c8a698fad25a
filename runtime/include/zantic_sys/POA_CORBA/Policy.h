// The skeleton of CORBA::Policy, for servants of IDL interfaces derived
// from it: their skeletons derive from this one and dispatch its three
// operations through it.
#ifndef YV_RT_POA_CORBA_POLICY_H
#define YV_RT_POA_CORBA_POLICY_H

#include "../CORBA/Policy.h"
#include "../CORBA/YV_ServerRequest.h"
#include "../PortableServer/ServantBase.h"

namespace POA_CORBA {

class Policy : public virtual PortableServer::ServantBase {
public:
    virtual ~Policy();

    PortableServer::ServantBase::_YV_DispatcherPtr _lookup_dispatcher(const char* operation) override;
    CORBA::Policy_ptr _this();
    CORBA::Boolean _yv_is_a(const YV_FWString& _id) override;
    CORBA::RepositoryId _primary_interface(const PortableServer::ObjectId& oid,
                                           PortableServer::POA_ptr poa) override;

    void* _local_narrow(const char* tag) override;
    static char _narrow_tag;
    static Policy* _narrow(PortableServer::ServantBase* _servant);

    virtual CORBA::PolicyType policy_type() = 0;
    virtual CORBA::Policy_ptr copy() = 0;
    virtual void destroy() = 0;

    static void _get_policy_type_yvgen_dispatch(PortableServer::ServantBase* _servant,
                                                CORBA::YV_ServerRequest_ptr _request,
                                                CORBA::CompletionStatus& _status);
    static void copy_yvgen_dispatch(PortableServer::ServantBase* _servant, CORBA::YV_ServerRequest_ptr _request,
                                    CORBA::CompletionStatus& _status);
    static void destroy_yvgen_dispatch(PortableServer::ServantBase* _servant, CORBA::YV_ServerRequest_ptr _request,
                                       CORBA::CompletionStatus& _status);
};

} // namespace POA_CORBA

#endif
