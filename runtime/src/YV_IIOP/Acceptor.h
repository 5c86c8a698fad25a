// A listening socket: accepts connections on a reactor thread and hands
// each new socket to the transport. When the process runs out of
// descriptors it stops listening for a moment instead of spinning.
#ifndef YV_IIOP_ACCEPTOR_H
#define YV_IIOP_ACCEPTOR_H

#include "YV_IIOP/Endpoint.h"
#include "YV_IIOP/Reactor.h"
#include "YV_IIOP/Socket.h"

#include <functional>
#include <memory>

namespace YV_IIOP {

class Acceptor : public Reactor::Handler, public std::enable_shared_from_this<Acceptor> {
public:
    Acceptor(Reactor& reactor, Socket socket, std::function<void(Socket)> accepted);

    void attach();
    void detach();
    // The address and port the socket listens on.
    Endpoint bound() const;

    void on_ready(bool hangup, Reactor::Later& later) override;

private:
    Reactor& m_reactor;
    Socket m_socket;
    std::function<void(Socket)> m_accepted;
    bool m_attached = false;
};

} // namespace YV_IIOP

#endif
