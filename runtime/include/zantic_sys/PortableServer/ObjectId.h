// Object ids: sequences of octets, and their conversion from and to strings.
#ifndef YV_RT_PORTABLESERVER_OBJECTID_H
#define YV_RT_PORTABLESERVER_OBJECTID_H

#include "../CORBA/Types.h"
#include "../YV_Cxx/Sequence.h"
#include "../YV_Cxx/Var_out.h"
#include "../YV_Cxx/Var_var.h"

namespace PortableServer {

typedef YV_Cxx::UnboundedSequence<CORBA::Octet> ObjectId;
typedef YV_Cxx::Var_var<ObjectId> ObjectId_var;
typedef YV_Cxx::Var_out<ObjectId> ObjectId_out;

// The octets of the string, without its NUL (caller owns the result).
ObjectId* string_to_ObjectId(const char* s);
// The octets as a string (caller frees it with CORBA::string_free).
char* ObjectId_to_string(const ObjectId& id);

} // namespace PortableServer

#endif
