// A socket descriptor that closes itself, and the few calls the transport
// makes on sockets: listening, connecting with a deadline, reading and
// writing without blocking the reactor.
#ifndef YV_IIOP_SOCKET_H
#define YV_IIOP_SOCKET_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

namespace YV_IIOP {

class Socket {
public:
    Socket() = default;
    explicit Socket(int fd) : m_fd(fd) {}
    Socket(Socket&& other) noexcept : m_fd(other.release()) {}
    Socket& operator=(Socket&& other) noexcept;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() { close(); }

    int fd() const { return m_fd; }
    bool valid() const { return m_fd >= 0; }
    int release();
    void close();

    // A non-blocking listening socket on host:port ("" or "0.0.0.0": every
    // IPv4 interface; "::": every interface). Throws std::system_error.
    static Socket listen(const std::string& host, std::uint16_t port);
    // A connected socket (tuned as below), or an invalid one
    // when no address of `host` accepted before `deadline` (`refused` tells
    // a refusal from a timeout or an unknown host).
    static Socket connect(const std::string& host, std::uint16_t port,
                          std::chrono::steady_clock::time_point deadline, bool& refused);

    // The address and port the socket is bound to.
    std::string local_host() const;
    std::uint16_t local_port() const;

    // Prepares a connected socket: TCP_NODELAY, and blocking, so that a
    // thread with nothing else to do may wait in recv; every read and write
    // that must not wait says so (MSG_DONTWAIT).
    static void tune(int fd);
    // A blocking read on `fd` gives up (EAGAIN) after `timeout`.
    static void receive_timeout(int fd, std::chrono::milliseconds timeout);
    // Writes all of `data`, waiting while the socket is full; false when
    // the peer is gone (or `deadline` passes).
    static bool write_all(int fd, const unsigned char* data, std::size_t size,
                          std::chrono::steady_clock::time_point deadline);

    // Waits until `fd` has input (or its end, or an error); false when
    // `deadline` passed first (time_point::max(): no deadline).
    static bool wait_readable(int fd, std::chrono::steady_clock::time_point deadline);

private:
    int m_fd = -1;
};

} // namespace YV_IIOP

#endif
