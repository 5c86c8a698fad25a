// The part every test server shares: stop signals taken by one thread, the
// ORB run until that thread shuts it down, then destroyed.
#ifndef INTEROP_SERVER_LOOP_H
#define INTEROP_SERVER_LOOP_H

#include "InteropOrb.h"

#include <signal.h>

namespace interop {

class ServerLoop {
public:
    // Blocks SIGTERM and SIGINT in the calling thread; make the loop before
    // ORB_init so that every thread the ORB starts inherits the mask.
    ServerLoop();

    // Runs `orb` until SIGTERM or SIGINT, then shuts it down and destroys
    // it. Servants must outlive this call.
    void run(CORBA::ORB_ptr orb);

private:
    sigset_t stop_;
};

} // namespace interop

#endif
