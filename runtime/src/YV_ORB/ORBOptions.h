// The -ORB options of ORB_init (every option takes one value, as the
// standard form "-ORB<name> <value>" has it; names compare without case):
//
//   -ORBListenEndpoints iiop://host:port[,...]  listen there (repeatable;
//                                  -ORBEndPoint and giop:tcp:host:port too)
//   -ORBEndpointHost name          the host written into references
//   -ORBGIOPMaxMsgSize octets      largest message taken or sent (2 MiB)
//   -ORBMaxThreads n               most threads serving requests (1024)
//   -ORBInitRef Name=URL           an initial reference (repeatable)
//   -ORBDefaultInitRef URL         where other initial references are found
//   -ORBCallTimeout ms             how long a call waits for its reply (0: no limit)
//   -ORBConnectTimeout ms          how long a connection may take (10000)
//   -ORBTraceLevel n               what goes to the standard error stream
//   -ORBColocated yes|no           whether references read from IORs and URLs
//                                  that name this ORB are served in process
//                                  (yes) or through its own endpoint (no)
//
// Unknown -ORB options are taken out with their value and reported on the
// standard error stream. Malformed values raise BAD_PARAM.
#ifndef YV_ORB_ORBOPTIONS_H
#define YV_ORB_ORBOPTIONS_H

#include "YV_IIOP/Endpoint.h"

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace YV_ORB {

struct ORBOptions {
    std::vector<YV_IIOP::Endpoint> listen;
    std::string endpoint_host;
    std::size_t max_message = 2 * 1024 * 1024;
    std::size_t max_threads = 1024;
    std::map<std::string, std::string> init_refs;
    std::string default_init_ref;
    std::chrono::milliseconds call_timeout{0};
    std::chrono::milliseconds connect_timeout{10000};
    int trace_level = 0;
    bool colocated = true;

    // Reads and removes the -ORB options of argv.
    void take(int& argc, char** argv);
};

} // namespace YV_ORB

#endif
