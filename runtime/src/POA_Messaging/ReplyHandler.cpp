// The reply-handler base skeleton, in the shape of a generated one.
#include "zantic_sys/POA_Messaging/ReplyHandler.h"

#include "zantic_sys/Messaging/YV_Gen_DynamicProxy_ReplyHandler.h"
#include "zantic_sys/yvcxx.h"
#include "zantic_sys/yvstatichash.h"

namespace POA_Messaging {

char ReplyHandler::_narrow_tag = 0;

ReplyHandler::~ReplyHandler() = default;

PortableServer::ServantBase::_YV_DispatcherPtr ReplyHandler::_lookup_dispatcher(const char* operation)
{
    static YV_Cxx_HashEntry _entry_1_0 = {"_interface", &PortableServer::ServantBase::_get_interface_dispatch, 0};
    static YV_Cxx_HashEntry _entry_2_1 = {"_non_existent", &PortableServer::ServantBase::_non_existent_dispatch, 0};
    static YV_Cxx_HashEntry _entry_2_0 = {"_is_a", &PortableServer::ServantBase::_is_a_dispatch, &_entry_2_1};
    static YV_Cxx_HashEntry* _raw_table[] = {0, &_entry_1_0, &_entry_2_0, 0};
    return YV_Cxx_StaticDispatchHashTable::lookup(operation, _raw_table, 4);
}

Messaging::ReplyHandler_ptr ReplyHandler::_this()
{
    CORBA::Object_var proxy = _this_impl(Messaging::ReplyHandler::_yv_fw_type_id.c_str());
    return new Messaging::YV_Gen_DynamicProxy_ReplyHandler(proxy);
}

CORBA::Boolean ReplyHandler::_yv_is_a(const YV_FWString& _id)
{
    return _id == Messaging::ReplyHandler::_yv_fw_type_id;
}

CORBA::RepositoryId ReplyHandler::_primary_interface(const PortableServer::ObjectId&, PortableServer::POA_ptr)
{
    return CORBA::string_dup(Messaging::ReplyHandler::_yv_fw_type_id.c_str());
}

void* ReplyHandler::_local_narrow(const char* tag)
{
    if (tag == &_narrow_tag)
        return this;
    return PortableServer::ServantBase::_local_narrow(tag);
}

ReplyHandler* ReplyHandler::_narrow(PortableServer::ServantBase* _servant)
{
    if (_servant == nullptr)
        return nullptr;
    return YV_STATIC_CAST(ReplyHandler*, _servant->_local_narrow(&_narrow_tag));
}

} // namespace POA_Messaging
