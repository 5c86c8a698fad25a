// The static dispatch tables of the skeletons.
#ifndef YV_RT_YVSTATICHASH_H
#define YV_RT_YVSTATICHASH_H

#include "YV_Cxx_HashEntry.h"
#include "YV_Cxx_StaticDispatchHashTable.h"

#endif
