// What a skeleton header with TIE classes needs: the servant classes, the
// TIE base, and the TIE classes of bases the runtime defines.
#ifndef YV_RT_POA_TIE_BASE_H
#define YV_RT_POA_TIE_BASE_H

#include "../omg/PortableServer.hh"
#include "POA_CORBA/Policy_tie.h"
#include "YV_POA_TieBase.h"

#endif
