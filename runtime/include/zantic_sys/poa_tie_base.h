// What a skeleton header with TIE classes needs: the servant classes and
// the TIE base.
#ifndef YV_RT_POA_TIE_BASE_H
#define YV_RT_POA_TIE_BASE_H

#include "../omg/PortableServer.hh"
#include "YV_POA_TieBase.h"

#endif
