#include "YV_ORB/CallContext.h"

namespace YV_ORB {

namespace {
thread_local const CallContext* innermost = nullptr;
}

CallContext::CallContext(Adapter* adapter, const std::string& object_id, PortableServer::ServantBase* servant)
    : m_adapter(adapter), m_object_id(object_id), m_servant(servant), m_outer(innermost)
{
    innermost = this;
}

CallContext::~CallContext()
{
    innermost = m_outer;
}

const CallContext* CallContext::current()
{
    return innermost;
}

} // namespace YV_ORB
