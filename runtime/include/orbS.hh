// The skeleton side of <orb.idl> (written only under -xORB_S_HH): the same
// as <omg/orbS.hh>.
#ifndef YV_RT_ORBS_HH
#define YV_RT_ORBS_HH

#include "omg/orbS.hh"

#endif
