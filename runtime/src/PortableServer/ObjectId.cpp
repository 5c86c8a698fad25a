#include "zantic_sys/PortableServer/ObjectId.h"

#include "zantic_sys/CORBA/string_functions.h"

#include <cstring>

namespace PortableServer {

ObjectId* string_to_ObjectId(const char* s)
{
    const CORBA::ULong len = s ? static_cast<CORBA::ULong>(std::strlen(s)) : 0;
    ObjectId* id = new ObjectId(len);
    id->length(len);
    for (CORBA::ULong i = 0; i < len; ++i)
        (*id)[i] = static_cast<CORBA::Octet>(s[i]);
    return id;
}

char* ObjectId_to_string(const ObjectId& id)
{
    char* s = CORBA::string_alloc(id.length());
    for (CORBA::ULong i = 0; i < id.length(); ++i)
        s[i] = static_cast<char>(id[i]);
    s[id.length()] = '\0';
    return s;
}

} // namespace PortableServer
