// System exceptions as replies carry them: repository id, minor code,
// completion status. Reading one throws the exception of that id; an id
// this ORB does not know becomes UNKNOWN with the same minor code and
// completion status.
#ifndef YV_GIOP_SYSTEMEXCEPTIONCODEC_H
#define YV_GIOP_SYSTEMEXCEPTIONCODEC_H

#include "zantic_sys/CORBA/Types.h"

#include <string>

namespace YV_CDR {
class InputStream;
} // namespace YV_CDR

namespace YV_GIOP {

struct SystemExceptionCodec {
    [[noreturn]] static void raise(const std::string& repository_id, CORBA::ULong minor,
                                   CORBA::CompletionStatus completed);
    // Reads the exception (MARSHAL when malformed) and throws it.
    [[noreturn]] static void read_and_raise(YV_CDR::InputStream& in);
    // True for the repository id of a standard system exception.
    static bool known(const std::string& repository_id);
};

} // namespace YV_GIOP

#endif
