#include "YV_GIOP/SystemExceptionCodec.h"

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/SystemException.h"

#include <cstring>

namespace YV_GIOP {

namespace {

typedef void (*Thrower)(CORBA::ULong, CORBA::CompletionStatus);

struct Entry {
    const char* id;
    Thrower raise;
};

#define YV_SYSTEM_EXCEPTION(name)                                                          \
    {"IDL:omg.org/CORBA/" #name ":1.0",                                                    \
     [](CORBA::ULong minor, CORBA::CompletionStatus completed) { throw CORBA::name(minor, completed); }},
const Entry entries[] = {
#include "zantic_sys/CORBA/SystemExceptions.def"
};
#undef YV_SYSTEM_EXCEPTION

const Entry* find(const std::string& id)
{
    for (const Entry& e : entries)
        if (id == e.id)
            return &e;
    return nullptr;
}

} // namespace

void SystemExceptionCodec::raise(const std::string& repository_id, CORBA::ULong minor,
                                 CORBA::CompletionStatus completed)
{
    if (const Entry* e = find(repository_id))
        e->raise(minor, completed);
    throw CORBA::UNKNOWN(minor, completed);
}

void SystemExceptionCodec::read_and_raise(YV_CDR::InputStream& in)
{
    const std::string id = read_text(in);
    const CORBA::ULong minor = in.read_ulong();
    const CORBA::ULong completed = in.read_ulong();
    if (completed > CORBA::COMPLETED_MAYBE)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
    raise(id, minor, static_cast<CORBA::CompletionStatus>(completed));
}

bool SystemExceptionCodec::known(const std::string& repository_id)
{
    return find(repository_id) != nullptr;
}

} // namespace YV_GIOP
