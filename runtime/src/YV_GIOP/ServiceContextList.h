// The service contexts of a request or reply: tagged octet sequences that
// ORBs exchange beside the call (code sets, ...). Contexts this ORB does not
// know are kept as they came and ignored.
#ifndef YV_GIOP_SERVICECONTEXTLIST_H
#define YV_GIOP_SERVICECONTEXTLIST_H

#include "zantic_sys/CORBA/Types.h"

#include <vector>

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_GIOP {

// Context ids this ORB reads or writes.
enum ServiceId : CORBA::ULong { CodeSets = 1 };

struct ServiceContext {
    CORBA::ULong context_id = 0;
    std::vector<CORBA::Octet> context_data;
};

struct ServiceContextList {
    std::vector<ServiceContext> contexts;

    // The context with that id, or 0.
    const ServiceContext* find(CORBA::ULong id) const;
    void add(CORBA::ULong id, std::vector<CORBA::Octet> data);

    void write(YV_CDR::OutputStream& out) const;
    static ServiceContextList read(YV_CDR::InputStream& in);
};

} // namespace YV_GIOP

#endif
