// The manager of the processing state of one or more POAs:
//
//   HOLDING     requests from the network wait (queued) until the state changes
//   ACTIVE      requests are served
//   DISCARDING  requests are refused with TRANSIENT
//   INACTIVE    requests are refused with OBJ_ADAPTER; the state is final
//
// A new manager is HOLDING. Calls from the same process are served at once
// while the manager holds (a program that makes a call in its only thread
// before activating must not hang); the other states apply to them too.
#ifndef YV_RT_PORTABLESERVER_POAMANAGER_H
#define YV_RT_PORTABLESERVER_POAMANAGER_H

#include "../CORBA/Exception.h"
#include "../CORBA/Object.h"
#include "../CORBA/Types.h"
#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace PortableServer {

class POAManager;
typedef POAManager* POAManager_ptr;

class POAManager : public virtual CORBA::Object {
public:
    class AdapterInactive : public CORBA::UserException {
    public:
        const char* _name() const override { return "AdapterInactive"; }
        const char* _rep_id() const override { return "IDL:omg.org/PortableServer/POAManager/AdapterInactive:1.0"; }
        void _raise() const override { throw *this; }
    };

    enum State { HOLDING, ACTIVE, DISCARDING, INACTIVE };

    void activate();
    // With `wait_for_completion` these wait until the requests being served
    // in the POAs of the manager are done (BAD_INV_ORDER when called from
    // such a request).
    void hold_requests(CORBA::Boolean wait_for_completion);
    void discard_requests(CORBA::Boolean wait_for_completion);
    void deactivate(CORBA::Boolean etherealize_objects, CORBA::Boolean wait_for_completion);
    State get_state();

    static POAManager_ptr _duplicate(POAManager_ptr m)
    {
        if (m != nullptr)
            m->_yv_add_ref();
        return m;
    }
    static POAManager_ptr _narrow(CORBA::Object_ptr obj) { return _duplicate(dynamic_cast<POAManager_ptr>(obj)); }
    static POAManager_ptr _nil() { return nullptr; }

    // What the manager says about a request from the network. `retry`
    // makes the work that serves the request again, kept while the manager
    // holds (it is called only then).
    enum Admission { serve, queued };
    // serve: the caller serves the request now and calls _yv_end_request
    // when it is done. queued: the work `retry` made was kept. Discarding
    // and inactive states raise TRANSIENT and OBJ_ADAPTER.
    Admission _yv_admit(const std::function<std::function<void()>()>& retry);
    // The same for a call from this process, which is never queued.
    void _yv_admit_local();
    void _yv_end_request();

    // A new manager (HOLDING), with one reference for the caller.
    static POAManager_ptr _yv_create();

private:
    POAManager() = default;
    ~POAManager() override;

    void change(State to, CORBA::Boolean wait_for_completion);

    std::mutex m_mutex;
    std::condition_variable m_idle;
    State m_state = HOLDING;
    unsigned long m_active = 0;
    std::deque<std::function<void()>> m_held;
};

typedef YV_Cxx::ObjRef_var<POAManager> POAManager_var;
typedef YV_Cxx::ObjRef_out<POAManager> POAManager_out;

} // namespace PortableServer

#endif
