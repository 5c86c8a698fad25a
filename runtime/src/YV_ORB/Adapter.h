// The object adapter behind a PortableServer::POA: its policies, its
// children, its active object map, its default servant, the keys of its
// references, and the bookkeeping of the requests it serves (a servant is
// released only when the last request on it is done).
#ifndef YV_ORB_ADAPTER_H
#define YV_ORB_ADAPTER_H

#include "YV_ORB/CallContext.h"
#include "zantic_sys/PortableServer/POA.h"

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace YV_ORB {

struct PolicyValues {
    PortableServer::ThreadPolicyValue thread = PortableServer::ORB_CTRL_MODEL;
    PortableServer::LifespanPolicyValue lifespan = PortableServer::TRANSIENT;
    PortableServer::IdUniquenessPolicyValue uniqueness = PortableServer::UNIQUE_ID;
    PortableServer::IdAssignmentPolicyValue assignment = PortableServer::SYSTEM_ID;
    PortableServer::ImplicitActivationPolicyValue implicit = PortableServer::NO_IMPLICIT_ACTIVATION;
    PortableServer::ServantRetentionPolicyValue retention = PortableServer::RETAIN;
    PortableServer::RequestProcessingPolicyValue processing = PortableServer::USE_ACTIVE_OBJECT_MAP_ONLY;

    // The root POA's: implicit activation, the rest the defaults.
    static PolicyValues root();
    // The defaults overridden by `list`; InvalidPolicy (with the index of
    // the culprit) for an unknown policy or a combination that cannot work.
    static PolicyValues from(const CORBA::PolicyList& list);
};

class Adapter {
public:
    // A new POA (with one reference for the caller): the root when `parent`
    // is null.
    static PortableServer::POA_ptr create(Adapter* parent, const std::string& name,
                                          PortableServer::POAManager_ptr manager, const PolicyValues& policies);
    ~Adapter();
    Adapter(const Adapter&) = delete;
    Adapter& operator=(const Adapter&) = delete;

    PortableServer::POA& poa() { return m_self; }
    const std::string& name() const { return m_name; }
    Adapter* parent() const { return m_parent; }
    const PolicyValues& policies() const { return m_policies; }
    PortableServer::POAManager_ptr manager() const { return m_manager.in(); }
    bool destroyed() const;

    PortableServer::POA_ptr create_child(const std::string& name, PortableServer::POAManager_ptr manager,
                                         const CORBA::PolicyList& policies);
    // A new reference to the child, or nil.
    PortableServer::POA_ptr find_child(const std::string& name);
    void destroy(bool wait_for_completion);
    // Returns once no request is being served here: a servant deactivated
    // meanwhile has been released by then.
    void wait_until_idle();

    PortableServer::ServantBase* default_servant();
    void default_servant(PortableServer::ServantBase* servant);

    // Activation: `id` null for a system id. Answers the id.
    std::string activate(PortableServer::ServantBase* servant, const std::string* id);
    void deactivate(const std::string& id);
    std::string servant_to_id(PortableServer::ServantBase* servant, bool for_reference);
    PortableServer::ServantBase* id_to_servant(const std::string& id);
    // The servant active under `id` (else the default servant), or 0.
    PortableServer::ServantBase* find_servant(const std::string& id);
    bool find_id(PortableServer::ServantBase* servant, std::string& id);
    void forget(PortableServer::ServantBase* servant);
    // True when `id` is in the active object map.
    bool is_active(const std::string& id);
    std::string new_system_id();

    // A new reference to the object `id` of this POA.
    CORBA::Object_ptr reference(const std::string& id, const std::string& repository_id);
    // The object key of `id`.
    std::vector<CORBA::Octet> key_of(const std::string& id) const;
    // The persistent path of names from the root (empty for the root).
    std::vector<std::string> path() const;

private:
    // An object of the active object map, with the requests it serves.
    struct Entry {
        PortableServer::ServantBase* servant = nullptr;
        unsigned long active = 0;
        bool deactivated = false;
    };

public:
    // One request on an object of this POA, from its start to its end: finds
    // the servant (OBJECT_NOT_EXIST when there is none, OBJ_ADAPTER when
    // servant managers would be needed), keeps it from being released,
    // serialises calls for the single-thread model, and makes the call the
    // thread's current one.
    class Serving {
    public:
        Serving(Adapter& adapter, const std::string& id);
        ~Serving();
        Serving(const Serving&) = delete;
        Serving& operator=(const Serving&) = delete;
        PortableServer::ServantBase* servant() const { return m_servant; }

    private:
        Adapter& m_adapter;
        std::shared_ptr<Entry> m_entry;
        PortableServer::ServantBase* m_servant = nullptr;
        std::unique_lock<std::recursive_mutex> m_serial;
        std::optional<CallContext> m_context;
    };

private:

    Adapter(PortableServer::POA& self, Adapter* parent, const std::string& name,
            PortableServer::POAManager_ptr manager, const PolicyValues& policies);

    void release_entry(const std::shared_ptr<Entry>& entry, std::unique_lock<std::mutex>& lock);
    void check_retain() const;

    PortableServer::POA& m_self;
    Adapter* m_parent;
    std::string m_name;
    PolicyValues m_policies;
    PortableServer::POAManager_var m_manager;
    CORBA::ULong m_number = 0;
    std::vector<CORBA::Octet> m_key_prefix;

    mutable std::mutex m_mutex;
    std::condition_variable m_idle;
    bool m_destroyed = false;
    std::map<std::string, PortableServer::POA_var> m_children;
    std::map<std::string, std::shared_ptr<Entry>> m_objects;
    std::multimap<PortableServer::ServantBase*, std::string> m_ids;
    PortableServer::ServantBase* m_default_servant = nullptr;
    unsigned long m_next_id = 0;
    unsigned long m_requests = 0;
    std::recursive_mutex m_serial;
};

} // namespace YV_ORB

#endif
