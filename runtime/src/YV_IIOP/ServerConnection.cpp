#include "YV_IIOP/ServerConnection.h"

#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/SpareBuffers.h"

namespace YV_IIOP {

using namespace YV_GIOP;

constexpr std::chrono::milliseconds ServerConnection::hold_time;

ServerConnection::ServerConnection(Reactor& reactor, Socket socket, std::size_t max_message, WorkerPool& pool,
                                   const Handler& handler, std::function<void(ServerConnection*)> on_lost)
    : Connection(reactor, std::move(socket), max_message), m_pool(pool), m_handler(handler),
      m_on_lost(std::move(on_lost))
{
    Socket::receive_timeout(fd(), hold_time);
}

void ServerConnection::code_sets(const CodeSets::Context& chosen)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_code_sets_known) {
        m_code_sets = chosen;
        m_code_sets_known = true;
    }
}

bool ServerConnection::code_sets(CodeSets::Context& chosen) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    chosen = m_code_sets;
    return m_code_sets_known;
}

void ServerConnection::close_orderly()
{
    Version version;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        version = m_version;
    }
    send(MessageBuilder::header_only(version, CloseConnection));
    close();
}

void ServerConnection::deliver(Message&& message, Reactor::Later& later)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_version = message.header.version;
    }
    switch (message.header.type) {
    case Request:
    case LocateRequest: {
        // One block holds the request and keeps the connection.
        auto served = std::make_shared<Served>(std::move(message),
                                               std::static_pointer_cast<ServerConnection>(shared_from_this()));
        // The thread that read the request serves it; when one read brings
        // several, the earlier ones go to the worker pool.
        if (!later.empty()) {
            m_pool.submit(std::move(later.back()));
            later.pop_back();
        }
        later.push_back([served] {
            served->connection->m_handler(std::shared_ptr<const Message>(served, &served->message),
                                          served->connection);
        });
        break;
    }
    case CloseConnection:
    case MessageError:
        close();
        break;
    default:
        break;
    }
}

ServerConnection::Served::~Served()
{
    // Its octets go to the spares of the thread that is done with it last
    // (usually the one that read it, and reads the next).
    SpareBuffers::give_octets(std::move(message.octets));
}

void ServerConnection::lost()
{
    if (m_on_lost)
        m_on_lost(this);
}

} // namespace YV_IIOP
