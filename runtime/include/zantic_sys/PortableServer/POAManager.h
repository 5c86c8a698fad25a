// The manager of the root adapter's state. Requests are served in process
// as they come, so the state only records what the application asked for.
#ifndef YV_RT_PORTABLESERVER_POAMANAGER_H
#define YV_RT_PORTABLESERVER_POAMANAGER_H

#include "../CORBA/Types.h"
#include "../YV_Cxx/Ref_var.h"

namespace PortableServer {

class POAManager;
typedef POAManager* POAManager_ptr;

class POAManager {
public:
    enum State { HOLDING, ACTIVE, DISCARDING, INACTIVE };

    void activate() { m_state = ACTIVE; }
    void hold_requests(CORBA::Boolean) { m_state = HOLDING; }
    void discard_requests(CORBA::Boolean) { m_state = DISCARDING; }
    void deactivate(CORBA::Boolean, CORBA::Boolean) { m_state = INACTIVE; }
    State get_state() const { return m_state; }

    static POAManager_ptr _duplicate(POAManager_ptr m) { return m; }
    static POAManager_ptr _nil() { return nullptr; }
    void _yv_release() {}

private:
    State m_state = HOLDING;
};

typedef YV_Cxx::ObjRef_var<POAManager> POAManager_var;

} // namespace PortableServer

#endif
