#include "YV_IIOP/ClientConnection.h"

#include "YV_GIOP/LocateReplyHeader.h"
#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_IIOP {

using namespace YV_GIOP;

ClientConnection::ClientConnection(Reactor& reactor, Socket socket, std::size_t max_message,
                                   std::function<void(ClientConnection*)> on_lost)
    : Connection(reactor, std::move(socket), max_message), m_on_lost(std::move(on_lost))
{
}

ClientConnection::Result ClientConnection::call(CORBA::ULong request_id, const unsigned char* message,
                                                std::size_t size, Message& reply,
                                                std::chrono::steady_clock::time_point deadline)
{
    Pending waiting;
    Pending* const pending = &waiting;
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_gone)
        return retry;
    m_version = Version{message[4], message[5]};
    m_pending.emplace_back(request_id, pending);
    // The caller reads the connection itself while no other caller does
    // (no thread switch between the reply and its caller); a reply read by
    // another caller is handed over.
    bool reading = !m_reader;
    m_reader = true;
    lock.unlock();
    if (!send(message, size)) {
        lock.lock();
        take_pending(request_id);
        if (reading) {
            m_reader = false;
            m_answered.notify_all();
        }
        // Nothing was answered: the server saw at most part of a message.
        return retry;
    }
    if (!reading)
        lock.lock();
    for (;;) {
        if (reading) {
            Reactor::Later none;
            bool ready = true;
            if (deadline == std::chrono::steady_clock::time_point::max()) {
                // Waits in recv itself: one call instead of poll and recv.
                read_available(none, true);
            } else {
                ready = Socket::wait_readable(fd(), deadline);
                if (ready)
                    read_available(none);
            }
            lock.lock();
            m_reader = false;
            reading = false;
            // Another caller may take over reading.
            m_answered.notify_all();
            if (!ready && !pending->done) {
                take_pending(request_id);
                return timed_out;
            }
        }
        if (pending->done)
            break;
        if (m_reader) {
            if (deadline == std::chrono::steady_clock::time_point::max()) {
                m_answered.wait(lock);
            } else if (m_answered.wait_until(lock, deadline) == std::cv_status::timeout && !pending->done) {
                // The request id is not used again: a late reply is dropped.
                take_pending(request_id);
                return timed_out;
            }
            continue;
        }
        m_reader = true;
        reading = true;
        lock.unlock();
    }
    if (pending->result == replied)
        reply = std::move(pending->reply);
    return pending->result;
}

ClientConnection::Pending* ClientConnection::take_pending(CORBA::ULong request_id)
{
    for (auto p = m_pending.begin(); p != m_pending.end(); ++p)
        if (p->first == request_id) {
            Pending* const found = p->second;
            m_pending.erase(p);
            return found;
        }
    return nullptr;
}

ClientConnection::Result ClientConnection::send_only(const unsigned char* message, std::size_t size)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_gone)
            return retry;
    }
    return send(message, size) ? replied : retry;
}

void ClientConnection::close_orderly()
{
    Version version;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        version = m_version;
    }
    send(MessageBuilder::header_only(version, CloseConnection));
    close();
}

void ClientConnection::deliver(Message&& message, Reactor::Later&)
{
    CORBA::ULong id = 0;
    switch (message.header.type) {
    case Reply:
    case LocateReply:
        try {
            YV_CDR::InputStream in = message.body();
            id = message.header.type == Reply ? ReplyHeader::read(in, message.header.version).request_id
                                              : LocateReplyHeader::read(in, message.header.version).request_id;
        } catch (const CORBA::Exception&) {
            refuse(message.header.version);
            return;
        }
        break;
    case CloseConnection: {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_orderly = true;
        m_gone = true;
        close();
        return;
    }
    case MessageError:
        close();
        return;
    default:
        // Requests to a client (no bidirectional GIOP here), fragments
        // already put together, cancels: nothing to do.
        return;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    Pending* const found = take_pending(id);
    if (found == nullptr)
        return;  // a call that timed out, or a reply nobody asked for
    found->reply = std::move(message);
    found->result = replied;
    found->done = true;
    m_answered.notify_all();
}

void ClientConnection::abandon()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_gone = true;
    for (auto& p : m_pending) {
        p.second->result = broken;
        p.second->done = true;
    }
    m_pending.clear();
    m_answered.notify_all();
}

void ClientConnection::lost()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_gone = true;
        for (auto& p : m_pending) {
            p.second->result = m_orderly ? retry : broken;
            p.second->done = true;
        }
        m_pending.clear();
        m_answered.notify_all();
    }
    if (m_on_lost)
        m_on_lost(this);
}

} // namespace YV_IIOP
