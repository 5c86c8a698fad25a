#include "ServerLoop.h"

#include <pthread.h>

#include <thread>

namespace interop {

ServerLoop::ServerLoop()
{
    sigemptyset(&stop_);
    sigaddset(&stop_, SIGTERM);
    sigaddset(&stop_, SIGINT);
    pthread_sigmask(SIG_BLOCK, &stop_, nullptr);
}

void ServerLoop::run(CORBA::ORB_ptr orb)
{
    std::thread stopper([this, orb] {
        int signal = 0;
        sigwait(&stop_, &signal);
        orb->shutdown(false);
    });
    // Only the stopper shuts the ORB down, so run() returns after it did.
    orb->run();
    stopper.join();
    orb->destroy();
}

} // namespace interop
