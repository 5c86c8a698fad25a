// The server side of the C++ mapping: servants and the object adapter,
// with the request class that dispatch functions serve, and the skeleton
// of CORBA::Policy for interfaces derived from it.
#ifndef YV_RT_OMG_PORTABLESERVER_HH
#define YV_RT_OMG_PORTABLESERVER_HH

#include "../zantic_sys/CORBA/Policy.h"
#include "../zantic_sys/CORBA/YV_ServerRequest.h"
#include "../zantic_sys/POA_CORBA/Policy.h"
#include "../zantic_sys/PortableServer/ObjectId.h"
#include "../zantic_sys/PortableServer/POA.h"
#include "../zantic_sys/PortableServer/POAManager.h"
#include "../zantic_sys/PortableServer/ServantBase.h"
#include "../zantic_sys/PortableServer/Servant_var.h"
#include "../zantic_sys/PortableServer/ValuePolicy.h"
#include "CORBA.hh"

#endif
