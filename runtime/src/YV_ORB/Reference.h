// What an object reference names. A reference made by a POA of this process
// knows the POA and the object id; one read from an IOR knows the IOR. Both
// know their repository id and object key, and give their IOR (a local
// reference makes it when first asked, with the ORB's endpoints).
//
// A reference that the target's server forwarded (LOCATION_FORWARD) sends
// its requests to the forward until the forward fails; the original is
// kept to fall back to.
#ifndef YV_ORB_REFERENCE_H
#define YV_ORB_REFERENCE_H

#include "YV_GIOP/IIOPProfile.h"
#include "YV_GIOP/IOR.h"
#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/PortableServer/POA.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace YV_ORB {

class Reference {
public:
    // A new object reference (one count) to the object `object_id` of `poa`.
    static CORBA::Object_ptr make_local(PortableServer::POA* poa, const std::string& object_id,
                                        std::vector<CORBA::Octet> key, const std::string& repository_id);
    // The reference an IOR describes (null for the nil reference).
    static std::shared_ptr<Reference> from_ior(YV_GIOP::IOR ior);
    // A new object reference (one count), nil for a null reference.
    static CORBA::Object_ptr object(std::shared_ptr<Reference> reference);

    const std::string& repository_id() const { return m_repository_id; }
    const std::vector<CORBA::Octet>& object_key() const { return m_key; }
    // The IIOP profiles of the reference, in the IOR's order (none for a
    // local reference until its IOR was made; others: MARSHAL when one
    // cannot be read).
    const std::vector<YV_GIOP::IIOPProfile>& iiop_profiles() const;
    // The IOR.
    YV_GIOP::IOR ior() const;

    // The POA and object id of an object of this process: set for a
    // reference a POA made, else found from an IOR that names one of this
    // ORB's endpoints and a key it made. False for other references.
    bool local(PortableServer::POA_var& poa, std::string& object_id) const;
    // The made-here POA, or 0.
    PortableServer::POA* made_by() const { return m_poa.in(); }
    const std::string& object_id() const { return m_object_id; }

    // Where requests go now: the latest forward, or this reference.
    std::shared_ptr<Reference> target(const std::shared_ptr<Reference>& self) const;
    void forward(std::shared_ptr<Reference> to) const;
    // Forgets the forward (it failed): requests go to the original again.
    // False when there was none.
    bool drop_forward() const;

    bool same_object(const Reference& other) const;

private:
    Reference() = default;
    // Makes the IOR of a local reference when first needed; m_mutex held.
    void make_ior() const;

    std::string m_repository_id;
    std::vector<CORBA::Octet> m_key;
    PortableServer::POA_var m_poa;
    std::string m_object_id;

    mutable std::mutex m_mutex;
    mutable YV_GIOP::IOR m_ior;
    // Set once the IOR and profiles are made; they do not change after.
    mutable std::atomic<bool> m_ior_made{false};
    // The endpoints version of the ORB for which this reference was found
    // to name none of its endpoints (~0: not known).
    mutable std::atomic<std::uint64_t> m_foreign_for{~std::uint64_t(0)};
    mutable std::vector<YV_GIOP::IIOPProfile> m_profiles;
    mutable std::shared_ptr<Reference> m_forward;
};

} // namespace YV_ORB

#endif
