// One TCP connection carrying GIOP messages. A reactor thread (or, for a
// client, a caller waiting for its reply) reads, one reader at a time:
// octets are cut into messages by their headers, fragments are put
// together, and every whole message goes to deliver() of the role (client
// or server). Any thread may send a whole message; sends of one connection
// never interleave.
//
// Bad input: a header with a bad magic or an unknown version, or a size
// beyond the limit, is answered with MessageError and the connection is
// closed (its octets cannot be trusted to find the next message); an unknown
// message type is answered with MessageError and skipped; a fragment that
// fits no message is answered with MessageError and closes the connection.
//
// The descriptor lives as long as the object. close() only shuts the
// socket down; the reactor's thread then sees the end, stops watching and
// calls lost() once.
#ifndef YV_IIOP_CONNECTION_H
#define YV_IIOP_CONNECTION_H

#include "YV_GIOP/FragmentAssembler.h"
#include "YV_GIOP/Message.h"
#include "YV_IIOP/Reactor.h"
#include "YV_IIOP/Socket.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

namespace YV_IIOP {

class Connection : public Reactor::Handler, public std::enable_shared_from_this<Connection> {
public:
    Connection(Reactor& reactor, Socket socket, std::size_t max_message);
    ~Connection() override;

    // Starts watching the socket (the reactor keeps the connection from
    // then on): for input, or only for its end (a client reads its replies
    // itself).
    void attach(Reactor::Watching what);
    // Sends one whole message; false when the connection is gone (it is
    // then closed).
    bool send(const unsigned char* data, std::size_t size);
    bool send(const std::vector<unsigned char>& message) { return send(message.data(), message.size()); }
    // Ends the connection (see the header).
    void close();
    bool is_closed() const { return m_closed; }
    int fd() const { return m_socket.fd(); }

    void on_ready(bool hangup, Reactor::Later& later) override;
    // Waits in a read for the next input, at most the socket's receive
    // timeout (a connection watched `held`).
    Reactor::Held hold(Reactor::Later& later) override;

    // How long a send may wait for the peer to read.
    static constexpr std::chrono::seconds send_timeout{60};

protected:
    // A whole message (the reading thread). Work that takes time goes to
    // `later` (the reactor runs it once reading goes on) or elsewhere.
    virtual void deliver(YV_GIOP::Message&& message, Reactor::Later& later) = 0;
    // The connection ended (the reading thread, once).
    virtual void lost() = 0;
    // Reads what the socket holds and delivers the whole messages; sees the
    // end of the connection. Any thread; readers take turns. `wait`: the
    // first read blocks until octets come (a client waiting for its reply
    // without a deadline): the socket is blocking and every other read and
    // send is made not to wait.
    void read_available(Reactor::Later& later, bool wait = false);
    // Sends MessageError, then closes after the peer had time to read it.
    void refuse(YV_GIOP::Version version);
    Reactor& reactor() { return m_reactor; }

private:
    // False when nothing came.
    bool read_locked(bool hangup, Reactor::Later& later, bool wait);
    void read_messages(Reactor::Later& later);
    // A large message at the start of the read buffer takes the buffer
    // (its octets are not copied); `m_reading_large` when some have not
    // come yet, else the message is whole in `m_large`.
    void take_read_buffer(const YV_GIOP::MessageHeader& header, std::size_t total);
    // A message read whole: fragments are put together, whole messages
    // delivered. False when the connection was refused.
    bool take(YV_GIOP::Message&& piece, Reactor::Later& later);
    // Ends the connection; m_reading is held.
    void finish();

    Reactor& m_reactor;
    Socket m_socket;
    const std::size_t m_max;
    // Held while reading; guards what follows up to m_write.
    std::mutex m_reading;
    YV_GIOP::FragmentAssembler m_assembler;
    // Octets read and not yet taken are m_in[m_start, m_end); the vector
    // only grows (up to a limit), so that reads neither zero-fill nor
    // allocate once it is large enough.
    std::vector<unsigned char> m_in;
    std::size_t m_start = 0;
    std::size_t m_end = 0;
    // A large message is read straight into its own octets rather than
    // through m_in: m_large_filled of them are there.
    YV_GIOP::Message m_large;
    std::size_t m_large_filled = 0;
    bool m_reading_large = false;
    std::mutex m_write;
    std::atomic<bool> m_closed{false};
    bool m_draining = false;
    bool m_finished = false;
};

} // namespace YV_IIOP

#endif
