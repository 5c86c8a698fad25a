// The named values and argument lists that dispatch functions build on the
// stack.
#ifndef YV_RT_NMVAL_H
#define YV_RT_NMVAL_H

#include "YV_Cxx_NV/StackBasedNVList.h"
#include "YV_Cxx_NV/StackBasedNamedValue.h"

#endif
