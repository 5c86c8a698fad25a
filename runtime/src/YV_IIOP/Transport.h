// IIOP: the reactor, the worker pool, the listening endpoints with the
// connections clients opened, and the cache of connections this ORB opened
// to servers (one per host and port, shared by every thread).
#ifndef YV_IIOP_TRANSPORT_H
#define YV_IIOP_TRANSPORT_H

#include "YV_IIOP/Acceptor.h"
#include "YV_IIOP/ClientConnection.h"
#include "YV_IIOP/Endpoint.h"
#include "YV_IIOP/Reactor.h"
#include "YV_IIOP/ServerConnection.h"
#include "YV_IIOP/WorkerPool.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace YV_IIOP {

class Transport {
public:
    struct Options {
        std::size_t max_message = 2 * 1024 * 1024;
        std::size_t max_threads = 1024;
        std::chrono::milliseconds connect_timeout{10000};
    };

    Transport(const Options& options, ServerConnection::Handler handler);
    ~Transport();
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    // Listens on `where` (port 0: the system chooses); answers where it
    // listens. Throws std::system_error.
    Endpoint listen(const Endpoint& where);

    // A connection to host:port: the cached one, else a new one. Null when
    // none could be made; `refused` when the server refused it.
    std::shared_ptr<ClientConnection> connect(const std::string& host, std::uint16_t port, bool& refused);

    // Runs `task` on a worker thread.
    void run(std::function<void()> task);

    // Stops listening, tells every client and server this ORB is connected
    // to that it closes, and stops the threads. Idempotent.
    void shutdown();

    const Options& options() const { return m_options; }
    std::size_t server_connections() const;

private:
    void accepted(Socket socket);

    const Options m_options;
    const ServerConnection::Handler m_handler;
    Reactor m_reactor;
    WorkerPool m_pool;
    mutable std::mutex m_mutex;
    bool m_down = false;
    std::vector<std::shared_ptr<Acceptor>> m_acceptors;
    std::map<ServerConnection*, std::weak_ptr<ServerConnection>> m_served;
    struct Slot {
        std::mutex connecting;
        std::shared_ptr<ClientConnection> connection;
    };
    std::map<std::pair<std::string, std::uint16_t>, std::shared_ptr<Slot>> m_clients;
};

} // namespace YV_IIOP

#endif
