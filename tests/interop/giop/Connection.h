// A raw TCP connection to a GIOP server, for tests that write messages by
// hand: sends octets, receives whole GIOP messages, notices the server
// closing. Every wait is bounded.
#ifndef GIOP_CONNECTION_H
#define GIOP_CONNECTION_H

#include "Message.h"

#include <cstdint>
#include <string>
#include <vector>

namespace giop {

class Connection {
public:
    // Connects (std::runtime_error when it cannot).
    Connection(const std::string& host, std::uint16_t port);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // False when the server closed the connection (or reset it).
    bool send(const std::vector<std::uint8_t>& bytes);
    // No more octets from this side.
    void shutdown_write();

    enum Outcome { received, closed, timed_out, garbage };
    // Reads one message: its 12-octet header, then as many octets as the
    // header says. `garbage` when the header does not start with "GIOP".
    Outcome receive(Message& message, int timeout_ms);

private:
    // Reads exactly n octets; false on close or timeout (`why` says which).
    bool read_exactly(std::uint8_t* data, std::size_t n, int timeout_ms, Outcome& why);

    int m_fd = -1;
};

} // namespace giop

#endif
