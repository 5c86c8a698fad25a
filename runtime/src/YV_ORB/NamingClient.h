// What string_to_object needs of a naming service: resolve of a
// CosNaming::NamingContext, called through the generic request path with
// streamables of its own (no generated code of the naming service).
#ifndef YV_ORB_NAMINGCLIENT_H
#define YV_ORB_NAMINGCLIENT_H

#include "YV_GIOP/StringName.h"
#include "zantic_sys/CORBA/Object.h"

namespace YV_ORB {

struct NamingClient {
    // The object bound to `name` in `context`. A name the service does not
    // know (any user exception) is BAD_PARAM with minor 0x4f4d000a; system
    // exceptions come as they are.
    static CORBA::Object_ptr resolve(CORBA::Object_ptr context, const YV_GIOP::StringName& name);
};

} // namespace YV_ORB

#endif
