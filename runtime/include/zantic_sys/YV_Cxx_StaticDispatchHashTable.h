// The search of a skeleton's static dispatch table. The generator placed
// every name in slot (low 32 bits of YV_hash_string(name)) & (slots - 1),
// chaining names that share a slot; lookup follows the same rule with the
// same hash (YV_hash_string.h, shared with the generator).
#ifndef YV_RT_YV_CXX_STATICDISPATCHHASHTABLE_H
#define YV_RT_YV_CXX_STATICDISPATCHHASHTABLE_H

#include "YV_hash_string.h"
#include "PortableServer/ServantBase.h"
#include "YV_Cxx_HashEntry.h"

#include <cstring>

class YV_Cxx_StaticDispatchHashTable {
public:
    // The dispatch function stored under `operation` in the table of
    // `slots` slots (a power of two), or 0.
    static PortableServer::ServantBase::_YV_DispatcherPtr lookup(const char* operation, YV_Cxx_HashEntry** raw_table,
                                                                 unsigned long slots)
    {
        if (operation == nullptr || raw_table == nullptr || slots == 0)
            return nullptr;
        for (const YV_Cxx_HashEntry* e = raw_table[slot_of(operation, slots)]; e != nullptr; e = e->next) {
            if (std::strcmp(e->name, operation) == 0)
                return e->dispatcher;
        }
        return nullptr;
    }

    // The slot where `operation` is placed.
    static unsigned long slot_of(const char* operation, unsigned long slots)
    {
        return YV_hash_slot(operation, static_cast<std::uint32_t>(slots));
    }
};

#endif
