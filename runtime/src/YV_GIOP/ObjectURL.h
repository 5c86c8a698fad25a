// Object URLs as string_to_object reads them:
//
//   corbaloc:[iiop]:[<major>.<minor>@]<host>[:<port>][,...][/<key>]
//   corbaloc:rir:[/<key>]
//   corbaname:<the same addresses>[/<key>][#<string name>]
//
// Hosts are names, IPv4 addresses or bracketed IPv6 addresses; the port
// defaults to 2809 and the version to 1.0; the key and the name are
// %-escaped. corbaname's key defaults to "NameService", as does rir's.
// Malformed URLs raise BAD_PARAM with the standard minor codes (bad scheme,
// bad address, bad scheme-specific part).
#ifndef YV_GIOP_OBJECTURL_H
#define YV_GIOP_OBJECTURL_H

#include "YV_GIOP/MessageHeader.h"

#include <string>
#include <vector>

namespace YV_GIOP {

struct ObjectURL {
    enum Scheme { corbaloc, corbaname };

    // Minor codes of BAD_PARAM for string_to_object.
    static constexpr CORBA::ULong minor_bad_scheme = 0x4f4d0007;
    static constexpr CORBA::ULong minor_bad_address = 0x4f4d0008;
    static constexpr CORBA::ULong minor_bad_syntax = 0x4f4d0009;

    static constexpr CORBA::UShort default_port = 2809;

    struct Address {
        bool rir = false;  // "rir:": the ORB's initial references
        Version version{1, 0};
        std::string host;
        CORBA::UShort port = default_port;
    };

    Scheme scheme = corbaloc;
    std::vector<Address> addresses;
    std::string key;   // the object key, unescaped
    std::string name;  // corbaname: the string name after '#', unescaped

    // True when `text` starts with a scheme this class reads.
    static bool is_url(const std::string& text);
    static ObjectURL parse(const std::string& text);
};

} // namespace YV_GIOP

#endif
