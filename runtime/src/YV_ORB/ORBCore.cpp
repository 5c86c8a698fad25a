#include "YV_ORB/ORBCore.h"

#include "YV_ORB/Adapter.h"

#include <chrono>
#include <random>
#include <unistd.h>

namespace YV_ORB {

ORBCore& ORBCore::instance()
{
    // Never deleted: see the header.
    static ORBCore* core = new ORBCore();
    return *core;
}

ORBCore::ORBCore()
{
    std::random_device device;
    std::seed_seq seed{device(), device(), static_cast<unsigned>(::getpid()),
                       static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count())};
    std::mt19937_64 random(seed);
    const std::uint64_t bits = random();
    for (std::size_t i = 0; i < m_nonce.size(); ++i)
        m_nonce[i] = static_cast<CORBA::Octet>(bits >> (8 * i));
}

PortableServer::POA_ptr ORBCore::root_poa()
{
    std::lock_guard<std::mutex> lock(m_root_mutex);
    if (m_root.in() == nullptr) {
        PortableServer::POAManager_var manager = PortableServer::POAManager::_yv_create();
        m_root = Adapter::create(nullptr, "RootPOA", manager.in(), PolicyValues::root());
    }
    return m_root.in();
}

CORBA::ULong ORBCore::register_adapter(Adapter* adapter)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const CORBA::ULong number = ++m_next_number;
    m_adapters[number] = adapter;
    return number;
}

void ORBCore::unregister_adapter(CORBA::ULong number)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_adapters.erase(number);
}

PortableServer::POA_ptr ORBCore::find_adapter(const ObjectKey& key)
{
    if (!key.persistent) {
        if (key.nonce != m_nonce)
            return nullptr;
        std::lock_guard<std::mutex> lock(m_mutex);
        auto found = m_adapters.find(key.adapter_number);
        if (found == m_adapters.end())
            return nullptr;
        return PortableServer::POA::_duplicate(&found->second->poa());
    }
    PortableServer::POA_var poa = PortableServer::POA::_duplicate(root_poa());
    for (const std::string& name : key.path) {
        PortableServer::POA_var child = poa->_yv_adapter().find_child(name);
        if (child.in() == nullptr)
            return nullptr;
        poa = child._retn();
    }
    if (poa->_yv_adapter().policies().lifespan != PortableServer::PERSISTENT)
        return nullptr;
    return poa._retn();
}

void ORBCore::run_later(std::function<void()> work)
{
    work();
}

std::vector<YV_GIOP::TaggedProfile> ORBCore::profiles_for(const std::vector<CORBA::Octet>&)
{
    return {};
}

bool ORBCore::is_local_endpoint(const std::string&, CORBA::UShort)
{
    return false;
}

} // namespace YV_ORB
