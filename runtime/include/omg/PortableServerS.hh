// The skeleton side of <omg/PortableServer.idl>: nothing beyond the object
// adapter and the servant classes, which the runtime defines itself.
#ifndef YV_RT_OMG_PORTABLESERVERS_HH
#define YV_RT_OMG_PORTABLESERVERS_HH

#include "PortableServer.hh"

#endif
