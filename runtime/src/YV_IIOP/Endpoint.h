// A TCP endpoint as options name it: "iiop://host:port" (also the older
// "giop:tcp:host:port"); IPv6 hosts in brackets; an empty host listens on
// every interface; port 0 lets the system choose.
#ifndef YV_IIOP_ENDPOINT_H
#define YV_IIOP_ENDPOINT_H

#include <cstdint>
#include <string>

namespace YV_IIOP {

struct Endpoint {
    std::string host;
    std::uint16_t port = 0;

    // False when `text` is not an endpoint.
    static bool parse(const std::string& text, Endpoint& endpoint);
    std::string to_string() const;
};

} // namespace YV_IIOP

#endif
