// Where an IOR's first IIOP profile points: host, port, object key and the
// GIOP version the profile names.
#ifndef GIOP_OBJECT_ADDRESS_H
#define GIOP_OBJECT_ADDRESS_H

#include <cstdint>
#include <string>
#include <vector>

namespace giop {

struct ObjectAddress {
    std::string host;
    std::uint16_t port = 0;
    std::vector<std::uint8_t> key;
    std::uint8_t major = 1;
    std::uint8_t minor = 0;

    // Decodes "IOR:<hex>"; throws std::runtime_error when it is malformed
    // or has no IIOP profile.
    static ObjectAddress from_ior(const std::string& ior);
    // The first line of a file holding an IOR.
    static ObjectAddress from_file(const std::string& path);
};

} // namespace giop

#endif
