// One entry of a skeleton's static dispatch table: an operation name, its
// dispatch function and the next entry of the same slot (or 0). Generated
// code defines the entries as function-local statics, aggregate-initialised.
#ifndef YV_RT_YV_CXX_HASHENTRY_H
#define YV_RT_YV_CXX_HASHENTRY_H

#include "PortableServer/ServantBase.h"

struct YV_Cxx_HashEntry {
    const char* name;
    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher;
    const YV_Cxx_HashEntry* next;
};

#endif
