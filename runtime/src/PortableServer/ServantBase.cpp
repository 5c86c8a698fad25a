#include "zantic_sys/PortableServer/ServantBase.h"

#include "YV_ORB/Adapter.h"
#include "YV_ORB/CallContext.h"
#include "YV_ORB/StandardStreamables.h"
#include "PortableServer/serve_operation.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/YV_ServerRequest.h"
#include "zantic_sys/CORBA/String_var.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/PortableServer/POA.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"
#include "zantic_sys/YV_Cxx/RefStreamable.h"
#include "zantic_sys/YV_Cxx_NV/StackBasedNVList.h"
#include "zantic_sys/YV_Cxx_NV/StackBasedNamedValue.h"

#include <cstring>
#include <string>

namespace PortableServer {

using YV_ORB::caller_streamable;
using YV_ORB::serve_operation;

namespace {

const char* const object_id = "IDL:omg.org/CORBA/Object:1.0";

} // namespace

ServantBase::~ServantBase()
{
    if (m_yv_activations > 0)
        POA::_yv_forget(this);
}

POA_ptr ServantBase::_default_POA()
{
    return POA::_duplicate(POA::_yv_root());
}

ServantBase::_YV_DispatcherPtr ServantBase::_lookup_dispatcher(const char* operation)
{
    if (operation == nullptr)
        return nullptr;
    if (std::strcmp(operation, "_interface") == 0)
        return &ServantBase::_get_interface_dispatch;
    if (std::strcmp(operation, "_is_a") == 0)
        return &ServantBase::_is_a_dispatch;
    if (std::strcmp(operation, "_non_existent") == 0)
        return &ServantBase::_non_existent_dispatch;
    return nullptr;
}

void* ServantBase::_local_narrow(const char*)
{
    return nullptr;
}

CORBA::Boolean ServantBase::_yv_is_a(const YV_FWString& id)
{
    return id == YV_FWString(object_id);
}

CORBA::RepositoryId ServantBase::_primary_interface(const ObjectId&, POA_ptr)
{
    return CORBA::string_dup(object_id);
}

CORBA::Boolean ServantBase::_is_a(const char* repository_id)
{
    if (repository_id == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    const YV_FWString id(repository_id);
    return _yv_is_a(id) || id == YV_FWString(object_id);
}

CORBA::Boolean ServantBase::_non_existent()
{
    return false;
}

CORBA::Object_ptr ServantBase::_get_interface()
{
    throw CORBA::INTF_REPOS(0, CORBA::COMPLETED_NO);
}

void ServantBase::_add_ref()
{
    ++m_yv_refs;
}

void ServantBase::_remove_ref()
{
    // The last reference deletes the servant (see the header).
    if (--m_yv_refs == 0)
        delete this;
}

CORBA::ULong ServantBase::_refcount_value()
{
    return m_yv_refs;
}

void ServantBase::_get_interface_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                          CORBA::CompletionStatus& status)
{
    serve_operation<YV_Cxx::ObjRefStreamable<CORBA::Object>, YV_Cxx::ObjRefStreamable<CORBA::Object>>(request, status, [servant] { return servant->_get_interface(); });
}

void ServantBase::_non_existent_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                         CORBA::CompletionStatus& status)
{
    serve_operation<YV_Cxx::BasicStreamable<CORBA::Boolean>, YV_ORB::FlagStreamable>(request, status, [servant] { return servant->_non_existent(); });
}

void ServantBase::_is_a_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                 CORBA::CompletionStatus& status)
{
    CORBA::NVList_ptr nvlist = nullptr;
    CORBA::Any* any = nullptr;
    if (request->yv_setup(nvlist, any)) {
        const char* id = caller_streamable<YV_Cxx::StringStreamable>(nvlist->item(0)->value()).extract();
        CORBA::Boolean& result = caller_streamable<YV_Cxx::BasicStreamable<CORBA::Boolean>>(any).extract();
        status = CORBA::COMPLETED_MAYBE;
        result = servant->_is_a(id);
        status = CORBA::COMPLETED_YES;
        request->set_result(*any);
        request->yv_respond();
        return;
    }
    CORBA::String_var id;
    YV_ORB::TextStreamable id_streamable(&id, request->yv_get_orb(), YV_Cxx::usage_in);
    CORBA::Any id_any(&id_streamable, YV_SHALLOW_COPY);
    YV_Cxx_NV::StackBasedNamedValue id_nv(id_any, CORBA::ARG_IN);
    CORBA::NamedValue* values[1] = {&id_nv};
    YV_Cxx_NV::StackBasedNVList args(1, values);
    request->arguments(&args);
    YV_ORB::FlagStreamable result;
    CORBA::Any result_any(&result, YV_SHALLOW_COPY);
    status = CORBA::COMPLETED_MAYBE;
    result.extract() = servant->_is_a(id.in());
    status = CORBA::COMPLETED_YES;
    request->set_result(result_any);
    request->yv_respond();
}

CORBA::Object_ptr ServantBase::_this_impl(const char* repo_id)
{
    const YV_ORB::CallContext* call = YV_ORB::CallContext::current();
    if (call != nullptr && call->servant() == this)
        return call->adapter()->reference(call->object_id(), repo_id ? repo_id : "");
    POA_var poa = _default_POA();
    YV_ORB::Adapter& adapter = poa->_yv_adapter();
    return adapter.reference(adapter.servant_to_id(this, true), repo_id ? repo_id : "");
}

} // namespace PortableServer
