// The client side of orb.idl: the CORBA module, which the runtime defines
// itself.
#ifndef YV_RT_OMG_ORB_HH
#define YV_RT_OMG_ORB_HH

#include "CORBA.hh"

#endif
