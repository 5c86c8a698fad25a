#include "zantic_sys/PortableServer/POAManager.h"

#include "YV_ORB/CallContext.h"
#include "YV_ORB/ORBCore.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace PortableServer {

namespace {

// How many requests a holding manager keeps before it refuses more.
constexpr std::size_t max_held = 10000;

} // namespace

POAManager_ptr POAManager::_yv_create()
{
    return new POAManager();
}

POAManager::~POAManager() = default;

void POAManager::activate()
{
    change(ACTIVE, false);
}

void POAManager::hold_requests(CORBA::Boolean wait_for_completion)
{
    change(HOLDING, wait_for_completion);
}

void POAManager::discard_requests(CORBA::Boolean wait_for_completion)
{
    change(DISCARDING, wait_for_completion);
}

void POAManager::deactivate(CORBA::Boolean, CORBA::Boolean wait_for_completion)
{
    change(INACTIVE, wait_for_completion);
}

POAManager::State POAManager::get_state()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_state;
}

void POAManager::change(State to, CORBA::Boolean wait_for_completion)
{
    if (wait_for_completion && YV_ORB::CallContext::current() != nullptr)
        throw CORBA::BAD_INV_ORDER(3, CORBA::COMPLETED_NO);
    std::deque<std::function<void()>> released;
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_state == INACTIVE) {
            if (to == INACTIVE)
                return;
            throw AdapterInactive();
        }
        m_state = to;
        if (to != HOLDING)
            released.swap(m_held);
        if (wait_for_completion)
            m_idle.wait(lock, [this] { return m_active == 0; });
    }
    // Held requests are served (or refused) by the new state.
    for (std::function<void()>& request : released)
        YV_ORB::ORBCore::instance().run_later(std::move(request));
}

POAManager::Admission POAManager::_yv_admit(const std::function<std::function<void()>()>& retry)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    switch (m_state) {
    case HOLDING:
        if (m_held.size() >= max_held)
            throw CORBA::TRANSIENT(0x4f4d0001, CORBA::COMPLETED_NO);
        m_held.push_back(retry());
        return queued;
    case DISCARDING:
        throw CORBA::TRANSIENT(0x4f4d0001, CORBA::COMPLETED_NO);
    case INACTIVE:
        throw CORBA::OBJ_ADAPTER(0, CORBA::COMPLETED_NO);
    case ACTIVE:
        break;
    }
    ++m_active;
    return serve;
}

void POAManager::_yv_admit_local()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_state == DISCARDING)
        throw CORBA::TRANSIENT(0x4f4d0001, CORBA::COMPLETED_NO);
    if (m_state == INACTIVE)
        throw CORBA::OBJ_ADAPTER(0, CORBA::COMPLETED_NO);
    ++m_active;
}

void POAManager::_yv_end_request()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (--m_active == 0)
        m_idle.notify_all();
}

} // namespace PortableServer
