// A connection a client opened to this ORB. Requests and locate requests go
// to the request handler (the ORB's server dispatcher), which answers
// through send(): on the reactor thread that read them, which then waits on
// the connection for the next one, at most `hold_time` (when one read
// brings several requests, the earlier ones go to the worker pool).
// CancelRequest is
// ignored (the reply, if any, is sent anyway and the client drops it);
// CloseConnection and MessageError from the client end the connection;
// replies sent to a server are ignored.
#ifndef YV_IIOP_SERVERCONNECTION_H
#define YV_IIOP_SERVERCONNECTION_H

#include "YV_GIOP/CodeSets.h"
#include "YV_IIOP/Connection.h"
#include "YV_IIOP/WorkerPool.h"

#include <chrono>
#include <functional>
#include <mutex>

namespace YV_IIOP {

class ServerConnection : public Connection {
public:
    typedef std::function<void(std::shared_ptr<const YV_GIOP::Message>, std::shared_ptr<ServerConnection>)> Handler;

    ServerConnection(Reactor& reactor, Socket socket, std::size_t max_message, WorkerPool& pool,
                     const Handler& handler, std::function<void(ServerConnection*)> on_lost);

    // The transmission code sets the client chose, once it said.
    void code_sets(const YV_GIOP::CodeSets::Context& chosen);
    bool code_sets(YV_GIOP::CodeSets::Context& chosen) const;

    // How long the thread that answered a request waits on the connection
    // for the next one before the reactor watches it again.
    static constexpr std::chrono::milliseconds hold_time{20};

    // Tells the client that this server closes the connection (it may
    // send its unanswered requests again elsewhere), then closes it.
    void close_orderly();

protected:
    void deliver(YV_GIOP::Message&& message, Reactor::Later& later) override;
    void lost() override;

private:
    // A request being served, and its connection.
    struct Served {
        Served(YV_GIOP::Message&& m, std::shared_ptr<ServerConnection> c)
            : message(std::move(m)), connection(std::move(c))
        {
        }
        ~Served();
        YV_GIOP::Message message;
        std::shared_ptr<ServerConnection> connection;
    };

    WorkerPool& m_pool;
    const Handler& m_handler;
    std::function<void(ServerConnection*)> m_on_lost;
    mutable std::mutex m_mutex;
    bool m_code_sets_known = false;
    YV_GIOP::CodeSets::Context m_code_sets;
    YV_GIOP::Version m_version{1, 0};
};

} // namespace YV_IIOP

#endif
