#include "RawPeer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace orbtest {

RawPeer RawPeer::connect_to(std::uint16_t port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(port);
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0)
        throw std::runtime_error("cannot connect");
    const int one = 1;
    ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof one);
    return RawPeer(fd);
}

RawPeer RawPeer::listen_here()
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = 0;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 || ::listen(fd, 8) != 0)
        throw std::runtime_error("cannot listen");
    return RawPeer(fd);
}

RawPeer::RawPeer(RawPeer&& other) noexcept : m_fd(other.m_fd)
{
    other.m_fd = -1;
}

RawPeer::~RawPeer()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

std::uint16_t RawPeer::port() const
{
    sockaddr_in a{};
    socklen_t n = sizeof a;
    ::getsockname(m_fd, reinterpret_cast<sockaddr*>(&a), &n);
    return ntohs(a.sin_port);
}

RawPeer RawPeer::accept(int ms)
{
    pollfd p{m_fd, POLLIN, 0};
    if (::poll(&p, 1, ms) != 1)
        throw std::runtime_error("nobody connected");
    return RawPeer(::accept(m_fd, nullptr, nullptr));
}

void RawPeer::send(const std::vector<unsigned char>& octets)
{
    std::size_t done = 0;
    while (done < octets.size()) {
        const ssize_t n = ::send(m_fd, octets.data() + done, octets.size() - done, MSG_NOSIGNAL);
        if (n <= 0)
            return;
        done += static_cast<std::size_t>(n);
    }
}

void RawPeer::finish_sending()
{
    ::shutdown(m_fd, SHUT_WR);
}

bool RawPeer::read_exactly(unsigned char* p, std::size_t n, int ms)
{
    while (n != 0) {
        pollfd f{m_fd, POLLIN, 0};
        if (::poll(&f, 1, ms) != 1)
            return false;
        const ssize_t got = ::recv(m_fd, p, n, 0);
        if (got <= 0)
            return false;
        p += got;
        n -= static_cast<std::size_t>(got);
    }
    return true;
}

bool RawPeer::receive(YV_GIOP::Message& m, int ms)
{
    m.octets.assign(YV_GIOP::MessageHeader::size, 0);
    if (!read_exactly(m.octets.data(), m.octets.size(), ms))
        return false;
    if (m.header.parse(m.octets.data()) != YV_GIOP::MessageHeader::ok)
        return false;
    m.octets.resize(YV_GIOP::MessageHeader::size + m.header.body_size);
    return read_exactly(m.octets.data() + YV_GIOP::MessageHeader::size, m.header.body_size, ms);
}

bool RawPeer::closed_by_peer(int ms)
{
    unsigned char buffer[4096];
    for (;;) {
        pollfd f{m_fd, POLLIN, 0};
        if (::poll(&f, 1, ms) != 1)
            return false;
        const ssize_t got = ::recv(m_fd, buffer, sizeof buffer, 0);
        if (got <= 0)
            return true;
    }
}

} // namespace orbtest
