// The object keys of this ORB's references. A key names the POA and the
// object id:
//
//   transient POA:   "YVT" <8-octet nonce of the process> <POA number, 4 octets> <object id>
//   persistent POA:  "YVP" <depth, 1 octet> {<POA name> NUL}... <object id>
//
// The nonce differs from run to run, so a transient reference outlives
// neither its POA nor the process; a persistent key is the path of POA
// names from the root (the root itself is transient), the same in every run.
#ifndef YV_ORB_OBJECTKEY_H
#define YV_ORB_OBJECTKEY_H

#include "zantic_sys/CORBA/Types.h"

#include <array>
#include <string>
#include <vector>

namespace YV_ORB {

struct ObjectKey {
    typedef std::array<CORBA::Octet, 8> Nonce;

    bool persistent = false;
    Nonce nonce{};
    CORBA::ULong adapter_number = 0;
    std::vector<std::string> path;
    std::string object_id;

    std::vector<CORBA::Octet> encode() const;
    // False for a key this ORB did not make.
    static bool parse(const CORBA::Octet* key, std::size_t size, ObjectKey& parsed);

    // The part of the key before the object id (POAs keep it).
    static std::vector<CORBA::Octet> transient_prefix(const Nonce& nonce, CORBA::ULong adapter_number);
    // False when a name cannot be part of a key (a NUL, more than 255 levels).
    static bool persistent_prefix(const std::vector<std::string>& path, std::vector<CORBA::Octet>& prefix);
};

} // namespace YV_ORB

#endif
