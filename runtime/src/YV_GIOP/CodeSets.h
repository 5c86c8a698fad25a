// Code sets: the character encodings a reference says its server can use
// (the TAG_CODE_SETS component of an IIOP profile), the choice a client
// sends with its first request on a connection (the CodeSets service
// context), and the choice itself.
//
// This ORB's native code sets are UTF-8 for char data (ISO 8859-1 offered
// as a conversion code set: char data passes unchanged) and UTF-16 for
// wide characters.
#ifndef YV_GIOP_CODESETS_H
#define YV_GIOP_CODESETS_H

#include "zantic_sys/CORBA/Types.h"

#include <vector>

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_GIOP {

struct CodeSets {
    // Registered code set ids.
    static constexpr CORBA::ULong iso_8859_1 = 0x00010001;
    static constexpr CORBA::ULong ucs_2 = 0x00010100;
    static constexpr CORBA::ULong utf_16 = 0x00010109;
    static constexpr CORBA::ULong utf_8 = 0x05010001;

    struct Component {
        CORBA::ULong native_code_set = 0;
        std::vector<CORBA::ULong> conversion_code_sets;
    };
    // What a server offers: for char data and for wide characters.
    struct Info {
        Component for_char;
        Component for_wchar;
    };
    // What a client chose: the transmission code sets.
    struct Context {
        CORBA::ULong char_data = iso_8859_1;
        CORBA::ULong wchar_data = utf_16;
    };

    // This ORB's offer.
    static Info ours();

    // The body of a TAG_CODE_SETS component (an encapsulation) and of a
    // CodeSets service context.
    static std::vector<CORBA::Octet> encode(const Info& info);
    static Info decode_info(const CORBA::Octet* data, std::size_t size);
    static std::vector<CORBA::Octet> encode(const Context& context);
    static Context decode_context(const CORBA::Octet* data, std::size_t size);

    // The transmission code sets a client of this ORB uses with a server that
    // offers `server`: the char code set is the server's native one when this
    // ORB can send it (UTF-8 or ISO 8859-1), else UTF-8 when the server
    // converts from it, else ISO 8859-1; wide characters are UTF-16.
    static Context negotiate(const Info& server);
};

} // namespace YV_GIOP

#endif
