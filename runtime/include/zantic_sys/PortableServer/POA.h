// The object adapter: the root POA of the process, with the root POA's
// policies (system ids, unique ids, implicit activation, retained servants).
// It maps object ids to servants; a reference names its object by adapter
// and id and finds the servant at each request.
#ifndef YV_RT_PORTABLESERVER_POA_H
#define YV_RT_PORTABLESERVER_POA_H

#include "../CORBA/Exception.h"
#include "../CORBA/Object.h"
#include "../YV_Cxx/Ref_var.h"
#include "ObjectId.h"
#include "POAManager.h"

#include <map>
#include <mutex>
#include <string>

namespace PortableServer {

class ServantBase;
class POA;
typedef POA* POA_ptr;

class POA : public virtual CORBA::Object {
public:
#define YV_POA_EXCEPTION(name)                                                         \
    class name : public CORBA::UserException {                                         \
    public:                                                                            \
        const char* _name() const override { return #name; }                          \
        const char* _rep_id() const override { return "IDL:omg.org/PortableServer/POA/" #name ":1.0"; } \
        void _raise() const override { throw *this; }                                  \
    };
    YV_POA_EXCEPTION(ServantAlreadyActive)
    YV_POA_EXCEPTION(ObjectAlreadyActive)
    YV_POA_EXCEPTION(ServantNotActive)
    YV_POA_EXCEPTION(ObjectNotActive)
    YV_POA_EXCEPTION(WrongAdapter)
    YV_POA_EXCEPTION(WrongPolicy)
#undef YV_POA_EXCEPTION

    // Activates the servant under a new id (caller owns the id).
    ObjectId* activate_object(ServantBase* servant);
    void activate_object_with_id(const ObjectId& id, ServantBase* servant);
    void deactivate_object(const ObjectId& id);

    CORBA::Object_ptr create_reference_with_id(const ObjectId& id, const char* repository_id);
    ObjectId* servant_to_id(ServantBase* servant);
    // The servant's reference; an inactive servant is activated first.
    CORBA::Object_ptr servant_to_reference(ServantBase* servant);
    ServantBase* reference_to_servant(CORBA::Object_ptr reference);
    ObjectId* reference_to_id(CORBA::Object_ptr reference);
    ServantBase* id_to_servant(const ObjectId& id);
    CORBA::Object_ptr id_to_reference(const ObjectId& id);

    POAManager_ptr the_POAManager();
    char* the_name() const;
    CORBA::Boolean _is_a(const char* repository_id) override;

    static POA_ptr _duplicate(POA_ptr poa);
    static POA_ptr _nil() { return nullptr; }
    static POA_ptr _narrow(CORBA::Object_ptr obj);

    static const YV_FWString _yv_fw_type_id;

    // The root adapter of the process.
    static POA_ptr _yv_root();
    // The servant active under `id` (octets as a string), or 0.
    ServantBase* _yv_find_servant(const std::string& id);
    // The id under which `servant` is active; false when it is not.
    bool _yv_find_id(ServantBase* servant, std::string& id);
    // Forgets a servant that is going away.
    void _yv_forget(ServantBase* servant);

private:
    POA();
    ~POA() override;

    std::string activate(const std::string& id, ServantBase* servant);

    std::mutex m_mutex;
    std::map<std::string, ServantBase*> m_servants;
    std::map<ServantBase*, std::string> m_ids;
    unsigned long m_next_id = 0;
    POAManager m_manager;
};

typedef YV_Cxx::ObjRef_var<POA> POA_var;

} // namespace PortableServer

#endif
