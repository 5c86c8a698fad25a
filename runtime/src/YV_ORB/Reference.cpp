#include "YV_ORB/Reference.h"

#include "YV_ORB/Adapter.h"
#include "YV_ORB/ObjectKey.h"
#include "YV_ORB/ORBCore.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_ORB {

CORBA::Object_ptr Reference::make_local(PortableServer::POA* poa, const std::string& object_id,
                                        std::vector<CORBA::Octet> key, const std::string& repository_id)
{
    std::shared_ptr<Reference> r(new Reference());
    r->m_repository_id = repository_id;
    r->m_key = std::move(key);
    r->m_poa = PortableServer::POA::_duplicate(poa);
    r->m_object_id = object_id;
    return object(std::move(r));
}

std::shared_ptr<Reference> Reference::from_ior(YV_GIOP::IOR ior)
{
    if (ior.is_nil())
        return nullptr;
    std::shared_ptr<Reference> r(new Reference());
    r->m_repository_id = ior.type_id;
    for (const YV_GIOP::TaggedProfile& p : ior.profiles) {
        if (p.tag != YV_GIOP::TAG_INTERNET_IOP)
            continue;
        try {
            r->m_profiles.push_back(YV_GIOP::IIOPProfile::decode(p));
        } catch (const CORBA::MARSHAL&) {
            // A profile this ORB cannot read is passed on, never used.
        }
    }
    if (!r->m_profiles.empty())
        r->m_key = r->m_profiles.front().object_key;
    r->m_ior = std::move(ior);
    r->m_ior_made = true;
    return r;
}

CORBA::Object_ptr Reference::object(std::shared_ptr<Reference> reference)
{
    if (!reference)
        return nullptr;
    return CORBA::Object::_yv_make(std::move(reference));
}

const std::vector<YV_GIOP::IIOPProfile>& Reference::iiop_profiles() const
{
    if (!m_ior_made.load(std::memory_order_acquire)) {
        std::lock_guard<std::mutex> lock(m_mutex);
        make_ior();
    }
    return m_profiles;
}

YV_GIOP::IOR Reference::ior() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    make_ior();
    return m_ior;
}

void Reference::make_ior() const
{
    if (m_ior_made)
        return;
    m_ior.type_id = m_repository_id;
    m_ior.profiles = ORBCore::instance().profiles_for(m_key);
    for (const YV_GIOP::TaggedProfile& p : m_ior.profiles)
        if (p.tag == YV_GIOP::TAG_INTERNET_IOP)
            m_profiles.push_back(YV_GIOP::IIOPProfile::decode(p));
    m_ior_made.store(true, std::memory_order_release);
}

bool Reference::local(PortableServer::POA_var& poa, std::string& object_id) const
{
    if (m_poa.in() != nullptr) {
        poa = PortableServer::POA::_duplicate(m_poa.in());
        object_id = m_object_id;
        return true;
    }
    if (m_key.empty())
        return false;
    // An IOR that names none of the ORB's endpoints goes on naming none
    // until the ORB listens elsewhere.
    ORBCore& core = ORBCore::instance();
    const std::uint64_t version = core.endpoints_version();
    if (m_foreign_for.load(std::memory_order_relaxed) == version)
        return false;
    bool ours = false;
    for (const YV_GIOP::IIOPProfile& p : m_profiles)
        ours = ours || core.is_local_endpoint(p.host, p.port);
    if (!ours)
        m_foreign_for.store(version, std::memory_order_relaxed);
    ObjectKey key;
    if (!ours || !ObjectKey::parse(m_key.data(), m_key.size(), key))
        return false;
    poa = ORBCore::instance().find_adapter(key);
    object_id = key.object_id;
    return true;
}

std::shared_ptr<Reference> Reference::target(const std::shared_ptr<Reference>& self) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_forward ? m_forward : self;
}

void Reference::forward(std::shared_ptr<Reference> to) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_forward = std::move(to);
}

bool Reference::drop_forward() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const bool had = static_cast<bool>(m_forward);
    m_forward.reset();
    return had;
}

bool Reference::same_object(const Reference& other) const
{
    if (this == &other)
        return true;
    if (m_key != other.m_key)
        return false;
    // A key of this ORB names POA and object: equal keys, same object.
    PortableServer::POA_var a, b;
    std::string ida, idb;
    const bool here = local(a, ida);
    if (here != other.local(b, idb))
        return false;
    if (here)
        return true;
    // Elsewhere: the same key at the same address.
    for (const YV_GIOP::IIOPProfile& p : iiop_profiles())
        for (const YV_GIOP::IIOPProfile& q : other.iiop_profiles())
            if (p.host == q.host && p.port == q.port)
                return true;
    return false;
}

} // namespace YV_ORB
