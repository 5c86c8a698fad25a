// The client side of <orb.idl>, the name IDL files use for the CORBA
// module: the same as <omg/orb.hh>.
#ifndef YV_RT_ORB_HH
#define YV_RT_ORB_HH

#include "omg/orb.hh"

#endif
