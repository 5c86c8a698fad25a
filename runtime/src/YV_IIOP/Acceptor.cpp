#include "YV_IIOP/Acceptor.h"

#include <cerrno>
#include <sys/socket.h>

namespace YV_IIOP {

Acceptor::Acceptor(Reactor& reactor, Socket socket, std::function<void(Socket)> accepted)
    : m_reactor(reactor), m_socket(std::move(socket)), m_accepted(std::move(accepted))
{
}

void Acceptor::attach()
{
    m_reactor.add(m_socket.fd(), shared_from_this());
    m_attached = true;
}

void Acceptor::detach()
{
    if (m_attached)
        m_reactor.remove(m_socket.fd());
    m_attached = false;
}

Endpoint Acceptor::bound() const
{
    Endpoint e;
    e.host = m_socket.local_host();
    e.port = m_socket.local_port();
    return e;
}

void Acceptor::on_ready(bool, Reactor::Later&)
{
    for (int i = 0; i < 64; ++i) {
        const int fd = ::accept4(m_socket.fd(), nullptr, nullptr, SOCK_CLOEXEC);
        if (fd >= 0) {
            Socket::tune(fd);
            m_accepted(Socket(fd));
            continue;
        }
        if (errno == EINTR || errno == ECONNABORTED)
            continue;
        if (errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM) {
            // Out of descriptors: listen again a little later.
            std::weak_ptr<Acceptor> self = shared_from_this();
            detach();
            m_reactor.post_after(std::chrono::milliseconds(100), [self] {
                if (auto a = self.lock())
                    a->attach();
            });
        }
        return;
    }
}

} // namespace YV_IIOP
