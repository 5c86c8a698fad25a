// A peer that speaks GIOP over a plain socket to this process's ORB: it
// sends whatever octets a test gives (well-formed or not) and reads whole
// messages back; or it listens and plays a server that answers as a test
// tells it.
#ifndef YV_ORB_RAWPEER_H
#define YV_ORB_RAWPEER_H

#include "YV_GIOP/Message.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orbtest {

class RawPeer {
public:
    // A connection to 127.0.0.1:port.
    static RawPeer connect_to(std::uint16_t port);
    // A listening socket on 127.0.0.1 with a port the system chooses.
    static RawPeer listen_here();
    RawPeer(RawPeer&& other) noexcept;
    RawPeer& operator=(RawPeer&&) = delete;
    ~RawPeer();

    std::uint16_t port() const;
    // The next connection to a listening peer (waits at most `ms`).
    RawPeer accept(int ms = 5000);

    void send(const std::vector<unsigned char>& octets);
    // Closes the sending side only.
    void finish_sending();
    // The next whole message, or false when the connection ended or
    // nothing came within `ms`.
    bool receive(YV_GIOP::Message& m, int ms = 5000);
    // True when the peer closed the connection within `ms` (whatever came
    // before is dropped).
    bool closed_by_peer(int ms = 5000);

private:
    explicit RawPeer(int fd) : m_fd(fd) {}
    bool read_exactly(unsigned char* p, std::size_t n, int ms);
    int m_fd;
};

} // namespace orbtest

#endif
