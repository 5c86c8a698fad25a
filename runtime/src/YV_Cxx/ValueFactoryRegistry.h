// The value factories of the process, by repository id. The ORB's
// register/lookup/unregister_value_factory work on it and the value decoder
// asks it for instances.
#ifndef YV_RT_SRC_YV_CXX_VALUEFACTORYREGISTRY_H
#define YV_RT_SRC_YV_CXX_VALUEFACTORYREGISTRY_H

#include "zantic_sys/CORBA/ValueFactoryBase.h"

#include <map>
#include <mutex>
#include <string>

namespace YV_Cxx {

class ValueFactoryRegistry {
public:
    static ValueFactoryRegistry& instance();

    ValueFactoryRegistry() = default;
    ValueFactoryRegistry(const ValueFactoryRegistry&) = delete;
    ValueFactoryRegistry& operator=(const ValueFactoryRegistry&) = delete;
    ~ValueFactoryRegistry();

    // Keeps a reference to `factory`; hands back the one it replaces (the
    // caller's reference) or null.
    CORBA::ValueFactory add(const char* id, CORBA::ValueFactory factory);
    // The factory with one more reference, or null.
    CORBA::ValueFactory find(const char* id) const;
    // False when there was none.
    bool remove(const char* id);

private:
    mutable std::mutex m_mutex;
    std::map<std::string, CORBA::ValueFactory, std::less<>> m_factories;
};

} // namespace YV_Cxx

#endif
