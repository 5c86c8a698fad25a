// The skeleton side of orb.idl: nothing beyond the servant classes, which
// the runtime defines itself.
#ifndef YV_RT_OMG_ORBS_HH
#define YV_RT_OMG_ORBS_HH

#include "PortableServer.hh"
#include "orb.hh"

#endif
