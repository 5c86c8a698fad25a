#include "YV_ORB/ORBCore.h"

#include "YV_GIOP/CodeSets.h"
#include "YV_GIOP/IIOPProfile.h"
#include "YV_ORB/Adapter.h"
#include "YV_ORB/ServerDispatcher.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <arpa/inet.h>
#include <chrono>
#include <ifaddrs.h>
#include <iostream>
#include <netinet/in.h>
#include <random>
#include <system_error>
#include <unistd.h>

namespace YV_ORB {

namespace {

// The ORB type this ORB writes into its profiles ("YVI").
constexpr CORBA::ULong orb_type = 0x59564900;

// The answers to one client connection.
class ConnectionSink : public ServerDispatcher::Sink {
public:
    explicit ConnectionSink(std::shared_ptr<YV_IIOP::ServerConnection> connection)
        : m_connection(std::move(connection))
    {
    }
    void send(const unsigned char* message, std::size_t size) override { m_connection->send(message, size); }
    void code_sets(const YV_GIOP::CodeSets::Context& chosen) override { m_connection->code_sets(chosen); }
    bool remote() const override { return true; }

private:
    std::shared_ptr<YV_IIOP::ServerConnection> m_connection;
};

bool wildcard(const std::string& host)
{
    return host.empty() || host == "0.0.0.0" || host == "::";
}

bool loopback(const std::string& host)
{
    return host == "localhost" || host == "::1" || host.compare(0, 4, "127.") == 0;
}

// The first IPv4 address of an interface that is up and not the loopback,
// else the loopback.
std::string host_address()
{
    std::string found = "127.0.0.1";
    ifaddrs* list = nullptr;
    if (::getifaddrs(&list) != 0)
        return found;
    for (ifaddrs* i = list; i != nullptr; i = i->ifa_next) {
        if (i->ifa_addr == nullptr || i->ifa_addr->sa_family != AF_INET)
            continue;
        char text[INET_ADDRSTRLEN] = "";
        ::inet_ntop(AF_INET, &reinterpret_cast<sockaddr_in*>(i->ifa_addr)->sin_addr, text, sizeof text);
        if (!loopback(text)) {
            found = text;
            break;
        }
    }
    ::freeifaddrs(list);
    return found;
}

void write_ulong_encapsulation(std::vector<CORBA::Octet>& out, CORBA::ULong v)
{
    YV_CDR::OutputStream s(YV_CDR::native_little_endian, 16);
    s.write_boolean(s.little_endian());
    s.write_ulong(v);
    out.assign(s.data(), s.data() + s.size());
}

} // namespace

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

void ORBCore::initialize(const ORBOptions& options)
{
    std::vector<YV_IIOP::Endpoint> endpoints;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_initialized)
            return;
        m_initialized = true;
        m_options = options;
        m_call_timeout = options.call_timeout.count();
        ++m_endpoints_version;
        m_trace_level = options.trace_level;
        endpoints = options.listen;
    }
    for (const YV_IIOP::Endpoint& e : endpoints)
        listen(e);
}

ORBOptions ORBCore::options() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_options;
}

std::chrono::milliseconds ORBCore::call_timeout() const
{
    return std::chrono::milliseconds(m_call_timeout.load(std::memory_order_relaxed));
}

void ORBCore::trace(int level, const std::string& line)
{
    if (m_trace_level >= level)
        std::cerr << "yv ORB: " << line << std::endl;
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

std::shared_ptr<YV_IIOP::Transport> ORBCore::transport()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_transport && !m_completed) {
        YV_IIOP::Transport::Options t;
        t.max_message = m_options.max_message;
        t.max_threads = m_options.max_threads;
        t.connect_timeout = m_options.connect_timeout;
        m_transport = std::make_shared<YV_IIOP::Transport>(
            t, [](std::shared_ptr<const YV_GIOP::Message> message, std::shared_ptr<YV_IIOP::ServerConnection> c) {
                ServerDispatcher::serve(std::move(message), std::make_shared<ConnectionSink>(std::move(c)));
            });
    }
    return m_transport;
}

void ORBCore::run_later(std::function<void()> work)
{
    std::shared_ptr<YV_IIOP::Transport> t;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        t = m_transport;
    }
    if (t)
        t->run(std::move(work));
    else
        work();
}

void ORBCore::listen(const YV_IIOP::Endpoint& where)
{
    std::shared_ptr<YV_IIOP::Transport> t = transport();
    if (!t)
        throw CORBA::BAD_INV_ORDER(0x4f4d0004, CORBA::COMPLETED_NO);
    YV_IIOP::Endpoint bound;
    try {
        bound = t->listen(where);
    } catch (const std::system_error& e) {
        std::cerr << "yv ORB: " << e.what() << "\n";
        throw CORBA::INITIALIZE(0, CORBA::COMPLETED_NO);
    }
    YV_IIOP::Endpoint published = bound;
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_options.endpoint_host.empty())
        published.host = m_options.endpoint_host;
    else if (wildcard(where.host))
        published.host = host_address();
    else
        published.host = where.host;
    m_bound.push_back(bound);
    m_published.push_back(published);
    ++m_endpoints_version;
    trace(1, "listening on " + bound.to_string() + ", references name " + published.to_string());
}

std::vector<YV_GIOP::TaggedProfile> ORBCore::profiles_for(const std::vector<CORBA::Octet>& key)
{
    bool listening;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        listening = !m_published.empty();
    }
    if (!listening)
        listen(YV_IIOP::Endpoint());
    std::lock_guard<std::mutex> lock(m_mutex);
    YV_GIOP::IIOPProfile p;
    p.version = YV_GIOP::Version{1, 2};
    p.host = m_published.front().host;
    p.port = m_published.front().port;
    p.object_key = key;
    YV_GIOP::TaggedComponent type;
    type.tag = YV_GIOP::TAG_ORB_TYPE;
    write_ulong_encapsulation(type.component_data, orb_type);
    p.components.push_back(type);
    YV_GIOP::TaggedComponent code_sets;
    code_sets.tag = YV_GIOP::TAG_CODE_SETS;
    code_sets.component_data = YV_GIOP::CodeSets::encode(YV_GIOP::CodeSets::ours());
    p.components.push_back(code_sets);
    for (std::size_t i = 1; i < m_published.size(); ++i) {
        YV_CDR::OutputStream s(YV_CDR::native_little_endian, 64);
        s.write_boolean(s.little_endian());
        s.write_string(m_published[i].host.c_str());
        s.write_ushort(m_published[i].port);
        YV_GIOP::TaggedComponent alternate;
        alternate.tag = YV_GIOP::TAG_ALTERNATE_IIOP_ADDRESS;
        alternate.component_data.assign(s.data(), s.data() + s.size());
        p.components.push_back(alternate);
    }
    return {p.encode()};
}

bool ORBCore::is_local_endpoint(const std::string& host, CORBA::UShort port)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_options.colocated)
        return false;
    for (std::size_t i = 0; i < m_bound.size(); ++i) {
        if (m_bound[i].port != port)
            continue;
        if (host == m_published[i].host || host == m_bound[i].host || wildcard(m_bound[i].host)
            || (loopback(host) && loopback(m_bound[i].host)))
            return true;
    }
    return false;
}

void ORBCore::register_initial_reference(const std::string& name, CORBA::Object_ptr obj)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_registered[name] = CORBA::Object::_duplicate(obj);
}

CORBA::Object_ptr ORBCore::registered_reference(const std::string& name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_registered.find(name);
    return found == m_registered.end() ? nullptr : CORBA::Object::_duplicate(found->second.in());
}

std::vector<std::string> ORBCore::initial_reference_names()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> names = {"RootPOA"};
    for (const auto& r : m_registered)
        names.push_back(r.first);
    for (const auto& r : m_options.init_refs)
        if (m_registered.count(r.first) == 0)
            names.push_back(r.first);
    return names;
}

void ORBCore::shutdown()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_shut_down = true;
    m_shutdown_cv.notify_all();
}

bool ORBCore::is_shut_down()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_shut_down;
}

void ORBCore::wait_for_shutdown()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_shutdown_cv.wait(lock, [this] { return m_shut_down; });
}

void ORBCore::complete_shutdown(bool wait_for_completion)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_completed)
            return;
        m_completed = true;
    }
    PortableServer::POA_var root;
    {
        std::lock_guard<std::mutex> lock(m_root_mutex);
        root = m_root._retn();
    }
    if (root.in() != nullptr)
        root->destroy(true, wait_for_completion);
    std::shared_ptr<YV_IIOP::Transport> t;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        t.swap(m_transport);
    }
    if (t)
        t->shutdown();
}

void ORBCore::reset()
{
    std::map<std::string, CORBA::Object_var> registered;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_initialized = false;
    m_shut_down = false;
    m_completed = false;
    m_options = ORBOptions();
    m_call_timeout = m_options.call_timeout.count();
    m_trace_level = 0;
    m_bound.clear();
    m_published.clear();
    ++m_endpoints_version;
    registered.swap(m_registered);
}

} // namespace YV_ORB
