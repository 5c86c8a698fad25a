#include "YV_IIOP/Transport.h"

namespace YV_IIOP {

Transport::Transport(const Options& options, ServerConnection::Handler handler)
    : m_options(options), m_handler(std::move(handler)), m_reactor(options.max_threads), m_pool(options.max_threads)
{
    m_reactor.start();
}

Transport::~Transport()
{
    shutdown();
}

Endpoint Transport::listen(const Endpoint& where)
{
    Socket socket = Socket::listen(where.host, where.port);
    auto acceptor = std::make_shared<Acceptor>(m_reactor, std::move(socket), [this](Socket s) { accepted(std::move(s)); });
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_down)
        throw std::system_error(ESHUTDOWN, std::generic_category(), "transport shut down");
    acceptor->attach();
    m_acceptors.push_back(acceptor);
    return acceptor->bound();
}

void Transport::accepted(Socket socket)
{
    auto connection = std::make_shared<ServerConnection>(
        m_reactor, std::move(socket), m_options.max_message, m_pool, m_handler, [this](ServerConnection* c) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_served.erase(c);
        });
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_down)
            return;
        m_served[connection.get()] = connection;
    }
    connection->attach(Reactor::held);
}

std::shared_ptr<ClientConnection> Transport::connect(const std::string& host, std::uint16_t port, bool& refused)
{
    refused = false;
    std::shared_ptr<Slot> slot;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_down)
            return nullptr;
        std::shared_ptr<Slot>& s = m_clients[std::make_pair(host, port)];
        if (!s)
            s = std::make_shared<Slot>();
        // The usual case: the connection is there.
        if (s->connection && !s->connection->is_closed())
            return s->connection;
        slot = s;
    }
    // One connection is made at a time per server; the others wait for it.
    std::lock_guard<std::mutex> connecting(slot->connecting);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (slot->connection && !slot->connection->is_closed())
            return slot->connection;
    }
    Socket socket = Socket::connect(host, port, std::chrono::steady_clock::now() + m_options.connect_timeout, refused);
    if (!socket.valid())
        return nullptr;
    std::weak_ptr<Slot> weak_slot = slot;
    auto connection = std::make_shared<ClientConnection>(
        m_reactor, std::move(socket), m_options.max_message, [this, weak_slot](ClientConnection* c) {
            std::shared_ptr<Slot> s = weak_slot.lock();
            std::lock_guard<std::mutex> lock(m_mutex);
            if (s && s->connection.get() == c)
                s->connection.reset();
        });
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_down)
            return nullptr;
        slot->connection = connection;
    }
    connection->attach(Reactor::hangup_only);
    return connection;
}

void Transport::run(std::function<void()> task)
{
    m_pool.submit(std::move(task));
}

std::size_t Transport::server_connections() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_served.size();
}

void Transport::shutdown()
{
    std::vector<std::shared_ptr<Acceptor>> acceptors;
    std::vector<std::shared_ptr<ServerConnection>> served;
    std::vector<std::shared_ptr<ClientConnection>> clients;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_down)
            return;
        m_down = true;
        acceptors.swap(m_acceptors);
        for (auto& s : m_served)
            if (auto c = s.second.lock())
                served.push_back(c);
        for (auto& c : m_clients)
            if (c.second->connection)
                clients.push_back(c.second->connection);
        m_clients.clear();
    }
    for (auto& a : acceptors)
        a->detach();
    // Requests being served (by the pool and by the reactor's threads)
    // finish first; their replies still go out.
    m_pool.stop();
    m_reactor.stop();
    for (auto& c : served)
        c->close_orderly();
    for (auto& c : clients)
        c->close_orderly();
    for (auto& c : clients)
        c->abandon();
    std::lock_guard<std::mutex> lock(m_mutex);
    m_served.clear();
}

} // namespace YV_IIOP
