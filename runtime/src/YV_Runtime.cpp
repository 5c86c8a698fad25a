#include "zantic_sys/YV_Runtime.h"

#include "YV_ORB/Invocation.h"
#include "YV_ORB/LocalServerRequest.h"
#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/ServantBase.h"
#include "zantic_sys/YV_Cxx/Operation.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

YV_Runtime::DispatchPath path_from_environment()
{
    const char* text = std::getenv("YV_DISPATCH_PATH");
    if (text != nullptr && std::strcmp(text, "request") == 0)
        return YV_Runtime::request_based;
    if (text != nullptr && std::strcmp(text, "wire") == 0)
        return YV_Runtime::wire;
    return YV_Runtime::colocated;
}

std::atomic<YV_Runtime::DispatchPath>& current_path()
{
    static std::atomic<YV_Runtime::DispatchPath> path(path_from_environment());
    return path;
}

} // namespace

void YV_Runtime::set_dispatch_path(DispatchPath path)
{
    current_path() = path;
}

YV_Runtime::DispatchPath YV_Runtime::dispatch_path()
{
    return current_path();
}

void YV_Runtime::invoke(PortableServer::ServantBase* servant, const char* operation, CORBA::NVList_ptr args,
                        YV_Streamable* result)
{
    const YV_Cxx::Operation op = {operation, false, nullptr, 0};
    invoke(servant, op, args, result);
}

void YV_Runtime::invoke(PortableServer::ServantBase* servant, const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                        YV_Streamable* result)
{
    if (servant == nullptr)
        throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
    const DispatchPath path = dispatch_path();
    if (path == wire && op.name != nullptr) {
        YV_ORB::Invocation::invoke_encoded(servant, op, args, result);
        return;
    }
    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =
        op.name ? servant->_lookup_dispatcher(op.name) : nullptr;
    if (dispatcher == nullptr)
        throw CORBA::BAD_OPERATION(0, CORBA::COMPLETED_NO);

    CORBA::Any result_any(result, YV_SHALLOW_COPY);
    YV_ORB::LocalServerRequest request(op.name, args, &result_any, path == colocated ? colocated : request_based);
    CORBA::CompletionStatus status = CORBA::COMPLETED_NO;
    try {
        dispatcher(servant, &request, status);
    } catch (const CORBA::Exception&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw CORBA::NO_MEMORY(0, status);
    } catch (...) {
        throw CORBA::UNKNOWN(0, status);
    }
    if (!request.yv_responded())
        throw CORBA::INTERNAL(0, status);
}
