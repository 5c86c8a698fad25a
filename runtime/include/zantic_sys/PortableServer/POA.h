// The Portable Object Adapter. The ORB makes the root POA ("RootPOA":
// transient, system ids, unique ids, implicit activation, retained
// servants); applications make child POAs with other policies. A POA maps
// object ids to servants in its active object map (RETAIN) or serves every
// object with one default servant (NON_RETAIN with USE_DEFAULT_SERVANT, or
// RETAIN with USE_DEFAULT_SERVANT for ids it has no servant for).
//
// Object keys: a reference made by a POA carries an object key naming the
// POA and the object id. Transient POAs name themselves by a number that
// is unique to the POA within this run of the process (their references
// die with the POA); persistent POAs by the path of their names from the
// root, so that a process restarted with the same endpoints serves their
// references again.
#ifndef YV_RT_PORTABLESERVER_POA_H
#define YV_RT_PORTABLESERVER_POA_H

#include "../CORBA/Exception.h"
#include "../CORBA/Object.h"
#include "../CORBA/Policy.h"
#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"
#include "ObjectId.h"
#include "POAManager.h"
#include "ValuePolicy.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace YV_ORB {
class Adapter;
} // namespace YV_ORB

namespace PortableServer {

class ServantBase;
class POA;
typedef POA* POA_ptr;
typedef YV_Cxx::ObjRef_var<POA> POA_var;
typedef YV_Cxx::ObjRef_out<POA> POA_out;

class POA : public virtual CORBA::Object {
public:
#define YV_POA_EXCEPTION(name)                                                                     \
    class name : public CORBA::UserException {                                                     \
    public:                                                                                        \
        const char* _name() const override { return #name; }                                      \
        const char* _rep_id() const override { return "IDL:omg.org/PortableServer/POA/" #name ":1.0"; } \
        void _raise() const override { throw *this; }                                              \
    };
    YV_POA_EXCEPTION(AdapterAlreadyExists)
    YV_POA_EXCEPTION(AdapterNonExistent)
    YV_POA_EXCEPTION(NoServant)
    YV_POA_EXCEPTION(ServantAlreadyActive)
    YV_POA_EXCEPTION(ObjectAlreadyActive)
    YV_POA_EXCEPTION(ServantNotActive)
    YV_POA_EXCEPTION(ObjectNotActive)
    YV_POA_EXCEPTION(WrongAdapter)
    YV_POA_EXCEPTION(WrongPolicy)
#undef YV_POA_EXCEPTION
    class InvalidPolicy : public CORBA::UserException {
    public:
        InvalidPolicy() = default;
        explicit InvalidPolicy(CORBA::UShort i) : index(i) {}
        const char* _name() const override { return "InvalidPolicy"; }
        const char* _rep_id() const override { return "IDL:omg.org/PortableServer/POA/InvalidPolicy:1.0"; }
        void _raise() const override { throw *this; }
        CORBA::UShort index = 0;
    };

    // Child POAs. A nil manager gives the child a new manager of its own.
    // Policies not in the list take their defaults: ORB_CTRL_MODEL,
    // TRANSIENT, UNIQUE_ID, SYSTEM_ID, NO_IMPLICIT_ACTIVATION, RETAIN,
    // USE_ACTIVE_OBJECT_MAP_ONLY.
    POA_ptr create_POA(const char* adapter_name, POAManager_ptr manager, const CORBA::PolicyList& policies);
    // AdapterNonExistent when there is no such child (there are no adapter
    // activators: `activate_it` changes nothing).
    POA_ptr find_POA(const char* adapter_name, CORBA::Boolean activate_it);
    // Destroys the children first, then forgets every object of this POA;
    // references to them raise OBJECT_NOT_EXIST from then on.
    void destroy(CORBA::Boolean etherealize_objects, CORBA::Boolean wait_for_completion);

    ThreadPolicy_ptr create_thread_policy(ThreadPolicyValue value);
    LifespanPolicy_ptr create_lifespan_policy(LifespanPolicyValue value);
    IdUniquenessPolicy_ptr create_id_uniqueness_policy(IdUniquenessPolicyValue value);
    IdAssignmentPolicy_ptr create_id_assignment_policy(IdAssignmentPolicyValue value);
    ImplicitActivationPolicy_ptr create_implicit_activation_policy(ImplicitActivationPolicyValue value);
    ServantRetentionPolicy_ptr create_servant_retention_policy(ServantRetentionPolicyValue value);
    RequestProcessingPolicy_ptr create_request_processing_policy(RequestProcessingPolicyValue value);

    char* the_name();
    POA_ptr the_parent();
    POAManager_ptr the_POAManager();

    // The default servant (USE_DEFAULT_SERVANT; WrongPolicy otherwise).
    ServantBase* get_servant();
    void set_servant(ServantBase* servant);

    // Activates the servant under a new system id (caller owns the id).
    ObjectId* activate_object(ServantBase* servant);
    void activate_object_with_id(const ObjectId& id, ServantBase* servant);
    void deactivate_object(const ObjectId& id);

    CORBA::Object_ptr create_reference(const char* repository_id);
    CORBA::Object_ptr create_reference_with_id(const ObjectId& id, const char* repository_id);

    ObjectId* servant_to_id(ServantBase* servant);
    // The servant's reference; an inactive servant is activated first when
    // the policies allow it.
    CORBA::Object_ptr servant_to_reference(ServantBase* servant);
    ServantBase* reference_to_servant(CORBA::Object_ptr reference);
    ObjectId* reference_to_id(CORBA::Object_ptr reference);
    ServantBase* id_to_servant(const ObjectId& id);
    CORBA::Object_ptr id_to_reference(const ObjectId& id);

    CORBA::Boolean _is_a(const char* repository_id) override;

    static POA_ptr _duplicate(POA_ptr poa);
    static POA_ptr _nil() { return nullptr; }
    static POA_ptr _narrow(CORBA::Object_ptr obj);
    static POA_ptr _unchecked_narrow(CORBA::Object_ptr obj) { return _narrow(obj); }

    static const YV_FWString _yv_fw_type_id;

    // The root POA of the process (made at first use).
    static POA_ptr _yv_root();
    // The servant that serves `id` now (active object map, else the
    // default servant), or 0.
    ServantBase* _yv_find_servant(const std::string& id);
    // The id under which `servant` is active; false when it is not.
    bool _yv_find_id(ServantBase* servant, std::string& id);
    // Forgets a servant that is going away, in every POA.
    static void _yv_forget(ServantBase* servant);
    // What the object adapter layer of the ORB keeps of this POA.
    YV_ORB::Adapter& _yv_adapter() { return *m_adapter; }

private:
    friend class YV_ORB::Adapter;
    POA();
    ~POA() override;

    std::unique_ptr<YV_ORB::Adapter> m_adapter;
};

} // namespace PortableServer

#endif
