#include "YV_IIOP/Connection.h"

#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/SpareBuffers.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace YV_IIOP {

using namespace YV_GIOP;

namespace {

// How much is read at a time, and how long a refused peer may take to read
// the MessageError before the connection goes.
constexpr std::size_t chunk = 64 * 1024;
// A message larger than this whose octets have not all come is read
// straight into its own buffer.
constexpr std::size_t large_message = 16 * 1024;
constexpr std::size_t kept_buffer = 1024 * 1024;
constexpr std::chrono::seconds drain_time{2};

} // namespace

constexpr std::chrono::seconds Connection::send_timeout;

Connection::Connection(Reactor& reactor, Socket socket, std::size_t max_message)
    : m_reactor(reactor), m_socket(std::move(socket)), m_max(std::max<std::size_t>(max_message, 1024)),
      m_assembler(m_max)
{
}

Connection::~Connection() = default;

void Connection::attach(Reactor::Watching what)
{
    m_reactor.add(m_socket.fd(), shared_from_this(), what);
}

bool Connection::send(const unsigned char* data, std::size_t size)
{
    if (m_closed)
        return false;
    bool sent;
    {
        std::lock_guard<std::mutex> lock(m_write);
        sent = Socket::write_all(m_socket.fd(), data, size, std::chrono::steady_clock::now() + send_timeout);
    }
    if (!sent)
        close();
    return sent;
}

void Connection::close()
{
    if (!m_closed.exchange(true))
        ::shutdown(m_socket.fd(), SHUT_RDWR);
}

void Connection::refuse(Version version)
{
    const std::vector<unsigned char> error = MessageBuilder::header_only(version, MessageError);
    {
        std::lock_guard<std::mutex> lock(m_write);
        Socket::write_all(m_socket.fd(), error.data(), error.size(),
                          std::chrono::steady_clock::now() + std::chrono::seconds(1));
    }
    // The peer may still be sending: closing with unread octets would reset
    // the connection and lose the MessageError. Read until it is done.
    m_draining = true;
    m_closed = true;
    ::shutdown(m_socket.fd(), SHUT_WR);
    std::weak_ptr<Connection> self = shared_from_this();
    m_reactor.post_after(drain_time, [self] {
        if (auto c = self.lock()) {
            // A caller may be waiting in recv with the reading lock held.
            ::shutdown(c->m_socket.fd(), SHUT_RDWR);
            std::lock_guard<std::mutex> lock(c->m_reading);
            c->finish();
        }
    });
}

void Connection::on_ready(bool hangup, Reactor::Later& later)
{
    std::lock_guard<std::mutex> lock(m_reading);
    read_locked(hangup, later, false);
}

Reactor::Held Connection::hold(Reactor::Later& later)
{
    std::lock_guard<std::mutex> lock(m_reading);
    // A message may come in several reads: wait until it is whole, or the
    // socket stays quiet for a receive timeout.
    while (!m_finished && read_locked(false, later, true) && later.empty()) {
    }
    if (m_finished)
        return later.empty() ? Reactor::ended : Reactor::work;
    return later.empty() ? Reactor::idle : Reactor::work;
}

void Connection::read_available(Reactor::Later& later, bool wait)
{
    std::lock_guard<std::mutex> lock(m_reading);
    read_locked(false, later, wait);
}

bool Connection::read_locked(bool hangup, Reactor::Later& later, bool wait)
{
    if (m_finished)
        return true;
    // The reactor calls again while octets are left.
    bool end = hangup;
    bool read = true;
    // A few reads per turn, so that one busy peer does not starve the
    // others (the reactor calls again while octets are waiting).
    for (int turn = 0; turn < 16; ++turn) {
        unsigned char* into;
        std::size_t room;
        int flags = wait && turn == 0 ? 0 : MSG_DONTWAIT;
        if (m_reading_large) {
            into = m_large.octets.data() + m_large_filled;
            room = m_large.octets.size() - m_large_filled;
            // A waiting reader takes the rest of the message in one call.
            if (flags == 0)
                flags = MSG_WAITALL;
        } else {
            if (m_start != 0 && m_start >= m_end / 2) {
                std::memmove(m_in.data(), m_in.data() + m_start, m_end - m_start);
                m_end -= m_start;
                m_start = 0;
            }
            if (m_in.size() - m_end < chunk)
                m_in.resize(m_end + chunk);
            into = m_in.data() + m_end;
            room = m_in.size() - m_end;
        }
        const ssize_t n = ::recv(m_socket.fd(), into, room, flags);
        if (n > 0) {
            if (m_reading_large) {
                m_large_filled += static_cast<std::size_t>(n);
                if (m_large_filled < m_large.octets.size())
                    continue;
                m_reading_large = false;
                // Octets behind the message are found on the next read.
                take(std::move(m_large), later);
                break;
            }
            m_end += static_cast<std::size_t>(n);
            if (m_draining) {
                m_start = 0;
                m_end = 0;
            } else {
                read_messages(later);
            }
            if (static_cast<std::size_t>(n) < room && !m_reading_large)
                break;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            read = turn != 0;
            break;
        }
        end = true;  // end of stream or an error
        break;
    }
    if (end)
        finish();
    return read;
}

void Connection::read_messages(Reactor::Later& later)
{
    while (!m_draining && m_end - m_start >= MessageHeader::size) {
        const unsigned char* p = m_in.data() + m_start;
        MessageHeader header;
        const MessageHeader::Problem problem = header.parse(p);
        if (problem == MessageHeader::bad_magic || problem == MessageHeader::bad_version) {
            refuse(problem == MessageHeader::bad_version ? Version{1, 0} : Version{1, 2});
            return;
        }
        if (header.body_size > m_max - MessageHeader::size) {
            refuse(header.version);
            return;
        }
        const std::size_t total = MessageHeader::size + header.body_size;
        if (problem == MessageHeader::ok && total > large_message && m_start == 0) {
            take_read_buffer(header, total);
            if (m_reading_large)
                break;
            if (!take(std::move(m_large), later))
                return;
            continue;
        }
        if (m_end - m_start < total) {
            if (problem == MessageHeader::ok && total > large_message) {
                // The rest goes straight into the message.
                m_large.header = header;
                m_large.octets = SpareBuffers::take_octets(total);
                std::memcpy(m_large.octets.data(), p, m_end - m_start);
                m_large_filled = m_end - m_start;
                m_reading_large = true;
                m_start = m_end;
                break;
            }
            return;
        }
        if (problem == MessageHeader::bad_type) {
            m_start += total;
            std::lock_guard<std::mutex> lock(m_write);
            const std::vector<unsigned char> error = MessageBuilder::header_only(header.version, MessageError);
            Socket::write_all(m_socket.fd(), error.data(), error.size(),
                              std::chrono::steady_clock::now() + std::chrono::seconds(1));
            continue;
        }
        Message piece;
        piece.header = header;
        piece.octets = SpareBuffers::take_octets(total);
        std::memcpy(piece.octets.data(), p, total);
        m_start += total;
        if (!take(std::move(piece), later))
            return;
    }
    if (m_start == m_end) {
        m_start = 0;
        m_end = 0;
        // A buffer grown for a very large message is not kept.
        if (m_in.size() > kept_buffer)
            std::vector<unsigned char>().swap(m_in);
    }
}

void Connection::take_read_buffer(const MessageHeader& header, std::size_t total)
{
    // The read buffer becomes the message's octets and a spare vector the
    // read buffer; octets read beyond the message move over to it.
    const std::size_t beyond = m_end > total ? m_end - total : 0;
    std::vector<unsigned char> next = SpareBuffers::take_octets(std::max(chunk, beyond));
    if (beyond != 0)
        std::memcpy(next.data(), m_in.data() + total, beyond);
    m_large.header = header;
    m_large.octets.swap(m_in);
    m_in.swap(next);
    m_large_filled = std::min(m_end, total);
    m_large.octets.resize(total);
    m_reading_large = m_large_filled < total;
    m_start = 0;
    m_end = beyond;
}

bool Connection::take(Message&& piece, Reactor::Later& later)
{
    const Version version = piece.header.version;
    Message whole;
    switch (m_assembler.add(std::move(piece), whole)) {
    case FragmentAssembler::complete:
        deliver(std::move(whole), later);
        return true;
    case FragmentAssembler::pending:
        return true;
    case FragmentAssembler::error:
        break;
    }
    refuse(version);
    return false;
}

void Connection::finish()
{
    if (m_finished)
        return;
    m_finished = true;
    m_closed = true;
    // A caller waiting on the socket for its reply wakes and finds the end.
    ::shutdown(m_socket.fd(), SHUT_RDWR);
    // Keeps the connection alive while the reactor lets go of it.
    std::shared_ptr<Connection> self = shared_from_this();
    m_reactor.remove(m_socket.fd());
    lost();
}

} // namespace YV_IIOP
