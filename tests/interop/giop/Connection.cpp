#include "Connection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>

namespace giop {

Connection::Connection(const std::string& host, std::uint16_t port)
{
    m_fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (m_fd < 0)
        throw std::runtime_error(std::string("socket: ") + std::strerror(errno));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    if (::inet_pton(AF_INET, host.c_str(), &address.sin_addr) != 1) {
        ::close(m_fd);
        throw std::runtime_error("not an IPv4 address: " + host);
    }
    if (::connect(m_fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        const int error = errno;
        ::close(m_fd);
        throw std::runtime_error(std::string("connect: ") + std::strerror(error));
    }
    const int on = 1;
    ::setsockopt(m_fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

Connection::~Connection()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

bool Connection::send(const std::vector<std::uint8_t>& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::send(m_fd, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += static_cast<std::size_t>(n);
    }
    return true;
}

void Connection::shutdown_write()
{
    ::shutdown(m_fd, SHUT_WR);
}

bool Connection::read_exactly(std::uint8_t* data, std::size_t n, int timeout_ms, Outcome& why)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
    std::size_t done = 0;
    while (done < n) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            why = timed_out;
            return false;
        }
        pollfd p{m_fd, POLLIN, 0};
        const int ready = ::poll(&p, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0) {
            why = timed_out;
            return false;
        }
        const ssize_t got = ::recv(m_fd, data + done, n - done, 0);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0) {
            why = closed;
            return false;
        }
        done += static_cast<std::size_t>(got);
    }
    return true;
}

Connection::Outcome Connection::receive(Message& message, int timeout_ms)
{
    message.bytes.assign(12, 0);
    Outcome why = received;
    if (!read_exactly(message.bytes.data(), 12, timeout_ms, why))
        return why;
    if (std::memcmp(message.bytes.data(), "GIOP", 4) != 0)
        return garbage;
    const std::uint32_t size = message.body_size();
    // Replies of these tests are small; anything larger is not a reply.
    if (size > (64u << 20))
        return garbage;
    message.bytes.resize(12 + size);
    if (!read_exactly(message.bytes.data() + 12, size, timeout_ms, why))
        return why;
    return received;
}

} // namespace giop
