#include "YV_ORB/Adapter.h"

#include "YV_ORB/ObjectKey.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/Reference.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/ServantBase.h"

#include <chrono>

namespace YV_ORB {

using namespace PortableServer;

namespace {

// Serialises the POAs of the main-thread model with one another.
std::recursive_mutex& main_thread_lock()
{
    static std::recursive_mutex lock;
    return lock;
}

// Distinguishes the system ids of persistent POAs of one run from those of
// earlier runs: the time the process made its first such id.
const std::string& run_stamp()
{
    static const std::string stamp = std::to_string(
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::system_clock::now().time_since_epoch())
            .count());
    return stamp;
}

} // namespace

PolicyValues PolicyValues::root()
{
    PolicyValues v;
    v.implicit = IMPLICIT_ACTIVATION;
    return v;
}

PolicyValues PolicyValues::from(const CORBA::PolicyList& list)
{
    PolicyValues v;
    int conflict = -1;  // the index blamed when policies do not go together
    for (CORBA::ULong i = 0; i < list.length(); ++i) {
        CORBA::Policy_ptr p = list[i].in();
        const CORBA::UShort index = static_cast<CORBA::UShort>(i);
        if (p == nullptr)
            throw POA::InvalidPolicy(index);
        switch (p->policy_type()) {
        case THREAD_POLICY_ID:
            v.thread = static_cast<ThreadPolicy*>(p)->value();
            break;
        case LIFESPAN_POLICY_ID:
            v.lifespan = static_cast<LifespanPolicy*>(p)->value();
            break;
        case ID_UNIQUENESS_POLICY_ID:
            v.uniqueness = static_cast<IdUniquenessPolicy*>(p)->value();
            break;
        case ID_ASSIGNMENT_POLICY_ID:
            v.assignment = static_cast<IdAssignmentPolicy*>(p)->value();
            conflict = i;
            break;
        case IMPLICIT_ACTIVATION_POLICY_ID:
            v.implicit = static_cast<ImplicitActivationPolicy*>(p)->value();
            conflict = i;
            break;
        case SERVANT_RETENTION_POLICY_ID:
            v.retention = static_cast<ServantRetentionPolicy*>(p)->value();
            break;
        case REQUEST_PROCESSING_POLICY_ID:
            v.processing = static_cast<RequestProcessingPolicy*>(p)->value();
            break;
        default:
            throw POA::InvalidPolicy(index);
        }
        if (dynamic_cast<CORBA::Policy*>(p) == nullptr)
            throw POA::InvalidPolicy(index);
    }
    auto blame = [&](CORBA::PolicyType type) -> CORBA::UShort {
        for (CORBA::ULong i = list.length(); i-- > 0;)
            if (list[i]->policy_type() == type)
                return static_cast<CORBA::UShort>(i);
        return static_cast<CORBA::UShort>(conflict < 0 ? 0 : conflict);
    };
    if (v.retention == NON_RETAIN && v.processing == USE_ACTIVE_OBJECT_MAP_ONLY)
        throw POA::InvalidPolicy(blame(SERVANT_RETENTION_POLICY_ID));
    if (v.implicit == IMPLICIT_ACTIVATION && (v.assignment == USER_ID || v.retention == NON_RETAIN))
        throw POA::InvalidPolicy(blame(IMPLICIT_ACTIVATION_POLICY_ID));
    return v;
}

PortableServer::POA_ptr Adapter::create(Adapter* parent, const std::string& name, POAManager_ptr manager,
                                        const PolicyValues& policies)
{
    // The POA owns its adapter; the caller gets the one reference.
    POA* poa = new POA();
    poa->m_adapter.reset(new Adapter(*poa, parent, name, manager, policies));
    return poa;
}

Adapter::Adapter(POA& self, Adapter* parent, const std::string& name, POAManager_ptr manager,
                 const PolicyValues& policies)
    : m_self(self), m_parent(parent), m_name(name), m_policies(policies),
      m_manager(POAManager::_duplicate(manager))
{
    if (m_policies.lifespan == PERSISTENT) {
        if (!ObjectKey::persistent_prefix(path(), m_key_prefix))
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    } else {
        m_number = ORBCore::instance().register_adapter(this);
        m_key_prefix = ObjectKey::transient_prefix(ORBCore::instance().nonce(), m_number);
    }
}

Adapter::~Adapter()
{
    if (m_number != 0)
        ORBCore::instance().unregister_adapter(m_number);
}

bool Adapter::destroyed() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_destroyed;
}

std::vector<std::string> Adapter::path() const
{
    std::vector<std::string> names;
    for (const Adapter* a = this; a->m_parent != nullptr; a = a->m_parent)
        names.insert(names.begin(), a->m_name);
    return names;
}

POA_ptr Adapter::create_child(const std::string& name, POAManager_ptr manager, const CORBA::PolicyList& policies)
{
    const PolicyValues values = PolicyValues::from(policies);
    POAManager_var own_manager;
    if (manager == nullptr) {
        own_manager = POAManager::_yv_create();
        manager = own_manager.in();
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_destroyed)
        throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
    if (m_children.count(name) != 0)
        throw POA::AdapterAlreadyExists();
    POA_var child = create(this, name, manager, values);
    m_children[name] = POA::_duplicate(child.in());
    return child._retn();
}

POA_ptr Adapter::find_child(const std::string& name)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_children.find(name);
    return found == m_children.end() ? nullptr : POA::_duplicate(found->second.in());
}

void Adapter::destroy(bool wait_for_completion)
{
    std::map<std::string, POA_var> children;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_destroyed)
            return;
        m_destroyed = true;
        children.swap(m_children);
    }
    for (auto& child : children)
        child.second->_yv_adapter().destroy(wait_for_completion);
    if (m_number != 0) {
        ORBCore::instance().unregister_adapter(m_number);
        m_number = 0;
    }

    std::unique_lock<std::mutex> lock(m_mutex);
    if (wait_for_completion) {
        for (const CallContext* call = CallContext::current(); call != nullptr; call = call->outer())
            if (call->adapter() == this)
                throw CORBA::BAD_INV_ORDER(3, CORBA::COMPLETED_NO);
        m_idle.wait(lock, [this] { return m_requests == 0; });
    }
    std::map<std::string, std::shared_ptr<Entry>> objects;
    objects.swap(m_objects);
    m_ids.clear();
    for (auto& object : objects) {
        object.second->deactivated = true;
        release_entry(object.second, lock);
    }
    ServantBase* default_servant = m_default_servant;
    m_default_servant = nullptr;
    lock.unlock();
    if (default_servant != nullptr)
        default_servant->_remove_ref();
    // The parent forgets this POA last: it may hold the last reference,
    // which goes when `self` does (nothing of this adapter is used after).
    if (m_parent != nullptr) {
        POA_var self;
        {
            std::lock_guard<std::mutex> parent_lock(m_parent->m_mutex);
            auto found = m_parent->m_children.find(m_name);
            if (found != m_parent->m_children.end() && found->second.in() == &m_self) {
                self = found->second._retn();
                m_parent->m_children.erase(found);
            }
        }
        m_parent = nullptr;
    }
}

void Adapter::wait_until_idle()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_idle.wait(lock, [this] { return m_requests == 0; });
}

void Adapter::release_entry(const std::shared_ptr<Entry>& entry, std::unique_lock<std::mutex>& lock)
{
    if (!entry->deactivated || entry->active != 0 || entry->servant == nullptr)
        return;
    ServantBase* servant = entry->servant;
    entry->servant = nullptr;
    lock.unlock();
    servant->_yv_deactivated();
    servant->_remove_ref();
    lock.lock();
}

void Adapter::check_retain() const
{
    if (m_policies.retention != RETAIN)
        throw POA::WrongPolicy();
}

ServantBase* Adapter::default_servant()
{
    if (m_policies.processing != USE_DEFAULT_SERVANT)
        throw POA::WrongPolicy();
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_default_servant == nullptr)
        throw POA::NoServant();
    m_default_servant->_add_ref();
    return m_default_servant;
}

void Adapter::default_servant(ServantBase* servant)
{
    if (m_policies.processing != USE_DEFAULT_SERVANT)
        throw POA::WrongPolicy();
    if (servant != nullptr)
        servant->_add_ref();
    ServantBase* old = nullptr;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        old = m_default_servant;
        m_default_servant = servant;
    }
    if (old != nullptr)
        old->_remove_ref();
}

std::string Adapter::new_system_id()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    const std::string n = std::to_string(++m_next_id);
    return m_policies.lifespan == PERSISTENT ? "yv-" + run_stamp() + "-" + n : "yv-" + n;
}

std::string Adapter::activate(ServantBase* servant, const std::string* id)
{
    check_retain();
    if (id == nullptr && m_policies.assignment != SYSTEM_ID)
        throw POA::WrongPolicy();
    if (servant == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    const std::string oid = id != nullptr ? *id : new_system_id();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_destroyed)
            throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
        if (m_policies.uniqueness == UNIQUE_ID && m_ids.count(servant) != 0)
            throw POA::ServantAlreadyActive();
        if (m_objects.count(oid) != 0)
            throw POA::ObjectAlreadyActive();
        auto entry = std::make_shared<Entry>();
        entry->servant = servant;
        m_objects[oid] = entry;
        m_ids.emplace(servant, oid);
    }
    servant->_add_ref();
    servant->_yv_activated();
    return oid;
}

void Adapter::deactivate(const std::string& id)
{
    check_retain();
    std::unique_lock<std::mutex> lock(m_mutex);
    auto found = m_objects.find(id);
    if (found == m_objects.end())
        throw POA::ObjectNotActive();
    std::shared_ptr<Entry> entry = found->second;
    m_objects.erase(found);
    for (auto it = m_ids.lower_bound(entry->servant); it != m_ids.end() && it->first == entry->servant; ++it)
        if (it->second == id) {
            m_ids.erase(it);
            break;
        }
    entry->deactivated = true;
    release_entry(entry, lock);
}

bool Adapter::is_active(const std::string& id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_objects.count(id) != 0;
}

std::string Adapter::servant_to_id(ServantBase* servant, bool for_reference)
{
    const bool may_use_default = m_policies.processing == USE_DEFAULT_SERVANT;
    if (!may_use_default
        && !(m_policies.retention == RETAIN
             && (m_policies.uniqueness == UNIQUE_ID || m_policies.implicit == IMPLICIT_ACTIVATION)))
        throw POA::WrongPolicy();
    // Inside a call on this servant: the object being called.
    const CallContext* call = CallContext::current();
    if (call != nullptr && call->adapter() == this && call->servant() == servant
        && (for_reference || m_default_servant == servant))
        return call->object_id();
    if (m_policies.retention == RETAIN) {
        std::string id;
        if (m_policies.uniqueness == UNIQUE_ID && find_id(servant, id))
            return id;
        if (m_policies.implicit == IMPLICIT_ACTIVATION)
            return activate(servant, nullptr);
    }
    throw POA::ServantNotActive();
}

ServantBase* Adapter::id_to_servant(const std::string& id)
{
    if (m_policies.retention != RETAIN && m_policies.processing != USE_DEFAULT_SERVANT)
        throw POA::WrongPolicy();
    ServantBase* servant = find_servant(id);
    if (servant == nullptr)
        throw POA::ObjectNotActive();
    return servant;
}

ServantBase* Adapter::find_servant(const std::string& id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (m_destroyed)
        return nullptr;
    auto found = m_objects.find(id);
    if (found != m_objects.end())
        return found->second->servant;
    return m_policies.processing == USE_DEFAULT_SERVANT ? m_default_servant : nullptr;
}

bool Adapter::find_id(ServantBase* servant, std::string& id)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto found = m_ids.find(servant);
    if (found == m_ids.end())
        return false;
    id = found->second;
    return true;
}

void Adapter::forget(ServantBase* servant)
{
    std::map<std::string, POA_var> children;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto range = m_ids.equal_range(servant);
        for (auto it = range.first; it != range.second; ++it) {
            auto object = m_objects.find(it->second);
            if (object != m_objects.end()) {
                object->second->servant = nullptr;
                m_objects.erase(object);
            }
        }
        m_ids.erase(range.first, range.second);
        if (m_default_servant == servant)
            m_default_servant = nullptr;
        children = m_children;
    }
    for (auto& child : children)
        child.second->_yv_adapter().forget(servant);
}

std::vector<CORBA::Octet> Adapter::key_of(const std::string& id) const
{
    std::vector<CORBA::Octet> key = m_key_prefix;
    key.insert(key.end(), id.begin(), id.end());
    return key;
}

CORBA::Object_ptr Adapter::reference(const std::string& id, const std::string& repository_id)
{
    return Reference::make_local(&m_self, id, key_of(id), repository_id);
}

Adapter::Serving::Serving(Adapter& adapter, const std::string& id) : m_adapter(adapter)
{
    {
        std::lock_guard<std::mutex> lock(adapter.m_mutex);
        if (adapter.m_destroyed)
            throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
        auto found = adapter.m_objects.find(id);
        if (found != adapter.m_objects.end() && found->second->servant != nullptr) {
            m_entry = found->second;
            m_servant = m_entry->servant;
            ++m_entry->active;
        } else if (adapter.m_policies.processing == USE_DEFAULT_SERVANT && adapter.m_default_servant != nullptr) {
            m_servant = adapter.m_default_servant;
            m_servant->_add_ref();
        } else if (adapter.m_policies.processing == USE_SERVANT_MANAGER) {
            throw CORBA::OBJ_ADAPTER(0, CORBA::COMPLETED_NO);
        } else {
            throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
        }
        ++adapter.m_requests;
    }
    if (adapter.m_policies.thread == SINGLE_THREAD_MODEL)
        m_serial = std::unique_lock<std::recursive_mutex>(adapter.m_serial);
    else if (adapter.m_policies.thread == MAIN_THREAD_MODEL)
        m_serial = std::unique_lock<std::recursive_mutex>(main_thread_lock());
    m_context.emplace(&adapter, id, m_servant);
}

Adapter::Serving::~Serving()
{
    m_context.reset();
    if (m_serial.owns_lock())
        m_serial.unlock();
    std::unique_lock<std::mutex> lock(m_adapter.m_mutex);
    if (m_entry) {
        --m_entry->active;
        m_adapter.release_entry(m_entry, lock);
    }
    if (--m_adapter.m_requests == 0)
        m_adapter.m_idle.notify_all();
    lock.unlock();
    if (!m_entry)
        m_servant->_remove_ref();
}

} // namespace YV_ORB
