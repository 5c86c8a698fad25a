#include "YV_IIOP/Socket.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace YV_IIOP {

namespace {

void set_blocking(int fd, bool blocking)
{
    const int flags = ::fcntl(fd, F_GETFL, 0);
    ::fcntl(fd, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK);
}

int remaining_ms(std::chrono::steady_clock::time_point deadline)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    return left.count() <= 0 ? 0 : static_cast<int>(std::min<long long>(left.count(), 1 << 30));
}

} // namespace

Socket& Socket::operator=(Socket&& other) noexcept
{
    if (this != &other) {
        close();
        m_fd = other.release();
    }
    return *this;
}

int Socket::release()
{
    const int fd = m_fd;
    m_fd = -1;
    return fd;
}

void Socket::close()
{
    if (m_fd >= 0)
        ::close(m_fd);
    m_fd = -1;
}

void Socket::tune(int fd)
{
    set_blocking(fd, true);
    const int one = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
}

void Socket::receive_timeout(int fd, std::chrono::milliseconds timeout)
{
    timeval t{};
    t.tv_sec = static_cast<time_t>(timeout.count() / 1000);
    t.tv_usec = static_cast<suseconds_t>(timeout.count() % 1000 * 1000);
    ::setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &t, sizeof t);
}

Socket Socket::listen(const std::string& host, std::uint16_t port)
{
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const std::string service = std::to_string(port);
    const char* node = host.empty() ? "0.0.0.0" : host.c_str();
    const int rc = ::getaddrinfo(node, service.c_str(), &hints, &found);
    if (rc != 0)
        throw std::system_error(EINVAL, std::generic_category(), "cannot resolve " + host + ": " + gai_strerror(rc));
    int error = EADDRNOTAVAIL;
    for (addrinfo* a = found; a != nullptr; a = a->ai_next) {
        Socket s(::socket(a->ai_family, a->ai_socktype | SOCK_CLOEXEC, a->ai_protocol));
        if (!s.valid()) {
            error = errno;
            continue;
        }
        const int one = 1;
        ::setsockopt(s.fd(), SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
        if (::bind(s.fd(), a->ai_addr, a->ai_addrlen) != 0 || ::listen(s.fd(), SOMAXCONN) != 0) {
            error = errno;
            continue;
        }
        set_blocking(s.fd(), false);
        ::freeaddrinfo(found);
        return s;
    }
    ::freeaddrinfo(found);
    throw std::system_error(error, std::generic_category(), "cannot listen on " + host + ":" + service);
}

Socket Socket::connect(const std::string& host, std::uint16_t port, std::chrono::steady_clock::time_point deadline,
                       bool& refused)
{
    refused = false;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    const std::string service = std::to_string(port);
    if (::getaddrinfo(host.c_str(), service.c_str(), &hints, &found) != 0)
        return Socket();
    Socket connected;
    for (addrinfo* a = found; a != nullptr && !connected.valid(); a = a->ai_next) {
        Socket s(::socket(a->ai_family, a->ai_socktype | SOCK_CLOEXEC | SOCK_NONBLOCK, a->ai_protocol));
        if (!s.valid())
            continue;
        if (::connect(s.fd(), a->ai_addr, a->ai_addrlen) != 0) {
            if (errno == ECONNREFUSED) {
                refused = true;
                continue;
            }
            if (errno != EINPROGRESS)
                continue;
            pollfd p{s.fd(), POLLOUT, 0};
            int rc;
            do
                rc = ::poll(&p, 1, remaining_ms(deadline));
            while (rc < 0 && errno == EINTR);
            if (rc <= 0)
                continue;
            int error = 0;
            socklen_t length = sizeof error;
            ::getsockopt(s.fd(), SOL_SOCKET, SO_ERROR, &error, &length);
            if (error != 0) {
                refused = refused || error == ECONNREFUSED;
                continue;
            }
        }
        tune(s.fd());
        connected = std::move(s);
    }
    ::freeaddrinfo(found);
    if (connected.valid())
        refused = false;
    return connected;
}

std::string Socket::local_host() const
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&address), &length);
    char text[INET6_ADDRSTRLEN] = "";
    if (address.ss_family == AF_INET6)
        ::inet_ntop(AF_INET6, &reinterpret_cast<sockaddr_in6*>(&address)->sin6_addr, text, sizeof text);
    else
        ::inet_ntop(AF_INET, &reinterpret_cast<sockaddr_in*>(&address)->sin_addr, text, sizeof text);
    return text;
}

std::uint16_t Socket::local_port() const
{
    sockaddr_storage address{};
    socklen_t length = sizeof address;
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&address), &length);
    if (address.ss_family == AF_INET6)
        return ntohs(reinterpret_cast<sockaddr_in6*>(&address)->sin6_port);
    return ntohs(reinterpret_cast<sockaddr_in*>(&address)->sin_port);
}

bool Socket::wait_readable(int fd, std::chrono::steady_clock::time_point deadline)
{
    const bool forever = deadline == std::chrono::steady_clock::time_point::max();
    for (;;) {
        pollfd p{fd, POLLIN | POLLRDHUP, 0};
        const int rc = ::poll(&p, 1, forever ? -1 : remaining_ms(deadline));
        if (rc > 0 || (rc < 0 && errno != EINTR))
            return true;  // an error shows when reading
        if (!forever && std::chrono::steady_clock::now() >= deadline)
            return false;
    }
}

bool Socket::write_all(int fd, const unsigned char* data, std::size_t size,
                       std::chrono::steady_clock::time_point deadline)
{
    while (size != 0) {
        const ssize_t n = ::send(fd, data, size, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (n > 0) {
            data += n;
            size -= static_cast<std::size_t>(n);
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) {
            pollfd p{fd, POLLOUT, 0};
            const int rc = ::poll(&p, 1, remaining_ms(deadline));
            if (rc == 0)
                return false;
            if (rc < 0 && errno != EINTR)
                return false;
            continue;
        }
        return false;
    }
    return true;
}

} // namespace YV_IIOP
