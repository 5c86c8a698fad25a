// What the thread knows about the request it serves: the POA, the object id
// and the servant, innermost call last. _this() of a servant inside a call
// on it answers the object being called; a POA manager refuses to wait for
// the requests of its POAs from inside one of them.
#ifndef YV_ORB_CALLCONTEXT_H
#define YV_ORB_CALLCONTEXT_H

#include <string>

namespace PortableServer {
class POA;
class ServantBase;
} // namespace PortableServer

namespace YV_ORB {

class Adapter;

class CallContext {
public:
    CallContext(Adapter* adapter, const std::string& object_id, PortableServer::ServantBase* servant);
    ~CallContext();
    CallContext(const CallContext&) = delete;
    CallContext& operator=(const CallContext&) = delete;

    // The innermost call of this thread, or 0.
    static const CallContext* current();

    Adapter* adapter() const { return m_adapter; }
    const std::string& object_id() const { return m_object_id; }
    PortableServer::ServantBase* servant() const { return m_servant; }
    // The call this one is nested in, or 0.
    const CallContext* outer() const { return m_outer; }

private:
    Adapter* m_adapter;
    std::string m_object_id;
    PortableServer::ServantBase* m_servant;
    const CallContext* m_outer;
};

} // namespace YV_ORB

#endif
