// The state the ORB keeps for the whole process: the nonce that makes
// transient object keys unique to this run, the POAs by number, the root
// POA, and the work that waits for a thread (requests a POA manager held
// back).
#ifndef YV_ORB_ORBCORE_H
#define YV_ORB_ORBCORE_H

#include "YV_GIOP/IOR.h"
#include "YV_ORB/ObjectKey.h"
#include "zantic_sys/PortableServer/POA.h"

#include <functional>
#include <map>
#include <mutex>

namespace YV_ORB {

class Adapter;

class ORBCore {
public:
    // The one core of the process (never destroyed: threads of the
    // transport may use it until the process ends).
    static ORBCore& instance();

    const ObjectKey::Nonce& nonce() const { return m_nonce; }

    // The root POA (made at first use).
    PortableServer::POA_ptr root_poa();

    // Transient POAs are found by number.
    CORBA::ULong register_adapter(Adapter* adapter);
    void unregister_adapter(CORBA::ULong number);
    // The POA that made `key` (a new reference), or nil.
    PortableServer::POA_ptr find_adapter(const ObjectKey& key);

    // Runs `work` on a thread of the ORB (in this thread while there is
    // no pool).
    void run_later(std::function<void()> work);

    // The profiles of a reference to an object of this process with `key`:
    // one IIOP profile naming this ORB's endpoints (listening first if the
    // ORB does not listen yet).
    std::vector<YV_GIOP::TaggedProfile> profiles_for(const std::vector<CORBA::Octet>& key);
    // True when `host`:`port` is one of this ORB's endpoints.
    bool is_local_endpoint(const std::string& host, CORBA::UShort port);

private:
    ORBCore();

    ObjectKey::Nonce m_nonce{};
    std::mutex m_root_mutex;
    PortableServer::POA_var m_root;
    std::mutex m_mutex;
    CORBA::ULong m_next_number = 0;
    std::map<CORBA::ULong, Adapter*> m_adapters;
};

} // namespace YV_ORB

#endif
