#include "YV_GIOP/ServiceContextList.h"

#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

namespace YV_GIOP {

const ServiceContext* ServiceContextList::find(CORBA::ULong id) const
{
    for (const ServiceContext& c : contexts)
        if (c.context_id == id)
            return &c;
    return nullptr;
}

void ServiceContextList::add(CORBA::ULong id, std::vector<CORBA::Octet> data)
{
    contexts.push_back(ServiceContext{id, std::move(data)});
}

void ServiceContextList::write(YV_CDR::OutputStream& out) const
{
    out.write_ulong(static_cast<CORBA::ULong>(contexts.size()));
    for (const ServiceContext& c : contexts) {
        out.write_ulong(c.context_id);
        out.write_ulong(static_cast<CORBA::ULong>(c.context_data.size()));
        out.write_octet_array(c.context_data.data(), c.context_data.size());
    }
}

ServiceContextList ServiceContextList::read(YV_CDR::InputStream& in)
{
    ServiceContextList list;
    // A context takes at least its id and its length.
    const CORBA::ULong n = in.read_count(8);
    list.contexts.resize(n);
    for (ServiceContext& c : list.contexts) {
        c.context_id = in.read_ulong();
        const CORBA::ULong length = in.read_count(1);
        c.context_data.resize(length);
        in.read_octet_array(c.context_data.data(), length);
    }
    return list;
}

} // namespace YV_GIOP
