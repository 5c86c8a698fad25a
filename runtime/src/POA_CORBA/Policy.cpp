// The Policy skeleton, in the shape of a generated one.
#include "zantic_sys/POA_CORBA/Policy.h"

#include "PortableServer/serve_operation.h"
#include "zantic_sys/CORBA/YV_Gen_DynamicProxy_Policy.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/RefStreamable.h"

#include <cstring>

namespace POA_CORBA {

char Policy::_narrow_tag = 0;

Policy::~Policy() = default;

PortableServer::ServantBase::_YV_DispatcherPtr Policy::_lookup_dispatcher(const char* operation)
{
    static const struct {
        const char* name;
        PortableServer::ServantBase::_YV_DispatcherPtr dispatch;
    } operations[] = {
        {"_get_policy_type", &Policy::_get_policy_type_yvgen_dispatch},
        {"copy", &Policy::copy_yvgen_dispatch},
        {"destroy", &Policy::destroy_yvgen_dispatch},
    };
    if (operation != nullptr)
        for (const auto& op : operations)
            if (std::strcmp(operation, op.name) == 0)
                return op.dispatch;
    return PortableServer::ServantBase::_lookup_dispatcher(operation);
}

CORBA::Policy_ptr Policy::_this()
{
    CORBA::Object_var proxy = _this_impl(CORBA::Policy::_yv_fw_type_id.c_str());
    return new CORBA::YV_Gen_DynamicProxy_Policy(proxy);
}

CORBA::Boolean Policy::_yv_is_a(const YV_FWString& _id)
{
    return _id == CORBA::Policy::_yv_fw_type_id;
}

CORBA::RepositoryId Policy::_primary_interface(const PortableServer::ObjectId&, PortableServer::POA_ptr)
{
    return CORBA::string_dup(CORBA::Policy::_yv_fw_type_id.c_str());
}

void* Policy::_local_narrow(const char* tag)
{
    if (tag == &_narrow_tag)
        return this;
    return PortableServer::ServantBase::_local_narrow(tag);
}

Policy* Policy::_narrow(PortableServer::ServantBase* _servant)
{
    if (_servant == nullptr)
        return nullptr;
    return static_cast<Policy*>(_servant->_local_narrow(&_narrow_tag));
}

// A servant that is no Policy cannot reach these: the dispatcher is found
// through its own skeleton.
void Policy::_get_policy_type_yvgen_dispatch(PortableServer::ServantBase* _servant,
                                             CORBA::YV_ServerRequest_ptr _request, CORBA::CompletionStatus& _status)
{
    Policy* self = _narrow(_servant);
    YV_ORB::serve_operation<YV_Cxx::BasicStreamable<CORBA::PolicyType>, YV_Cxx::BasicStreamable<CORBA::PolicyType>>(
        _request, _status, [self] { return self->policy_type(); });
}

void Policy::copy_yvgen_dispatch(PortableServer::ServantBase* _servant, CORBA::YV_ServerRequest_ptr _request,
                                 CORBA::CompletionStatus& _status)
{
    Policy* self = _narrow(_servant);
    YV_ORB::serve_operation<YV_Cxx::ObjRefStreamable<CORBA::Policy>, YV_Cxx::ObjRefStreamable<CORBA::Policy>>(
        _request, _status, [self] { return self->copy(); });
}

void Policy::destroy_yvgen_dispatch(PortableServer::ServantBase* _servant, CORBA::YV_ServerRequest_ptr _request,
                                    CORBA::CompletionStatus& _status)
{
    Policy* self = _narrow(_servant);
    YV_ORB::serve_void_operation(_request, _status, [self] { self->destroy(); });
}

} // namespace POA_CORBA
