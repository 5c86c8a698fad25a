#include "zantic_sys/YV_Runtime.h"

#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/ServantBase.h"

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
    if (servant == nullptr)
        throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =
        operation ? servant->_lookup_dispatcher(operation) : nullptr;
    if (dispatcher == nullptr)
        throw CORBA::BAD_OPERATION(0, CORBA::COMPLETED_NO);

    CORBA::Any result_any(result, YV_SHALLOW_COPY);
    CORBA::YV_ServerRequest request(operation, args, &result_any, dispatch_path());
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
