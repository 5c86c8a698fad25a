// Interoperable object references: a repository id and tagged profiles, in
// CDR and as the stringified form "IOR:<hex of an encapsulation>". Profiles
// and components this ORB does not know are kept unchanged, so that a
// reference passed on keeps everything its maker put in.
#ifndef YV_GIOP_IOR_H
#define YV_GIOP_IOR_H

#include "zantic_sys/CORBA/Types.h"

#include <string>
#include <vector>

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_GIOP {

// Profile and component tags.
enum ProfileTag : CORBA::ULong { TAG_INTERNET_IOP = 0, TAG_MULTIPLE_COMPONENTS = 1 };
enum ComponentTag : CORBA::ULong { TAG_ORB_TYPE = 0, TAG_CODE_SETS = 1, TAG_ALTERNATE_IIOP_ADDRESS = 3 };

struct TaggedProfile {
    CORBA::ULong tag = 0;
    std::vector<CORBA::Octet> profile_data;
};

struct TaggedComponent {
    CORBA::ULong tag = 0;
    std::vector<CORBA::Octet> component_data;
};

struct IOR {
    std::string type_id;
    std::vector<TaggedProfile> profiles;

    // The nil reference has no profiles (and, as written, an empty id).
    bool is_nil() const { return profiles.empty(); }

    void write(YV_CDR::OutputStream& out) const;
    static IOR read(YV_CDR::InputStream& in);

    // "IOR:" and the hexadecimal octets of the reference as an encapsulation.
    std::string to_string() const;
    // Reads the stringified form ("IOR:" in any case, hexadecimal digits in
    // either case); MARSHAL for anything malformed.
    static IOR from_string(const std::string& text);
};

} // namespace YV_GIOP

#endif
