// What a client-side proxy tells the runtime about the operation it
// invokes, beside its arguments: the name as it goes into a request, whether
// the call is oneway (no reply is awaited), and the user exceptions of its
// raises clause, each with the function that reads its members from a
// reply and throws it. Generated proxies keep one constant per operation.
#ifndef YV_RT_YV_CXX_OPERATION_H
#define YV_RT_YV_CXX_OPERATION_H

#include "../CORBA/Types.h"

namespace YV_CDR {
class InputStream;
}

namespace YV_Cxx {

struct UserExceptionInfo {
    const char* repository_id;
    // Reads the exception's members (the repository id has been read) and
    // throws it; never returns.
    void (*read_and_raise)(YV_CDR::InputStream& in);
};

struct Operation {
    const char* name;
    CORBA::Boolean oneway;
    const UserExceptionInfo* exceptions;
    CORBA::ULong exception_count;
};

// The read_and_raise of exception class E: E has _yv_read_members.
template <class E>
void read_and_raise(YV_CDR::InputStream& in)
{
    E e;
    e._yv_read_members(in);
    throw e;
}

} // namespace YV_Cxx

#endif
