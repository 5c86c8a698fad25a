// The base of every servant. A skeleton class derives from it and supplies
// the lookup of its dispatch functions, its type checks and its narrowing;
// the object adapter and the in-process request path use them.
#ifndef YV_RT_PORTABLESERVER_SERVANTBASE_H
#define YV_RT_PORTABLESERVER_SERVANTBASE_H

#include "../CORBA/Object.h"
#include "../CORBA/Types.h"
#include "../YV_FWString.h"
#include "ObjectId.h"

namespace PortableServer {

class POA;
typedef POA* POA_ptr;

class ServantBase {
public:
    // A dispatch function: serves one request on the servant.
    typedef void (*_YV_DispatcherPtr)(ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus&);

    virtual ~ServantBase();

    // The adapter the servant is activated in by _this (the root POA).
    virtual POA_ptr _default_POA();

    // The dispatch function of an operation, or 0. This base knows the three
    // standard operations; skeletons answer for theirs too.
    virtual _YV_DispatcherPtr _lookup_dispatcher(const char* operation);
    // The object as the class whose narrowing tag is `tag`, or 0. Skeletons
    // answer for their own tags and ask their bases; this base knows none.
    virtual void* _local_narrow(const char* tag);
    // True when the servant implements the interface of repository id `id`.
    virtual CORBA::Boolean _yv_is_a(const YV_FWString& id);
    // The repository id of the servant's most derived interface (caller frees).
    virtual CORBA::RepositoryId _primary_interface(const ObjectId& oid, POA_ptr poa);

    // The standard operations as the servant answers them.
    virtual CORBA::Boolean _is_a(const char* repository_id);
    virtual CORBA::Boolean _non_existent();
    // The interface definition; there is no interface repository (INTF_REPOS).
    virtual CORBA::Object_ptr _get_interface();

    // Reference counting of servants; the base does not count.
    virtual void _add_ref();
    virtual void _remove_ref();

    // The dispatch functions of the standard operations "_interface",
    // "_is_a" and "_non_existent".
    static void _get_interface_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                        CORBA::CompletionStatus& status);
    static void _is_a_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                               CORBA::CompletionStatus& status);
    static void _non_existent_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                       CORBA::CompletionStatus& status);

    // The adapter the servant is active in (0 when inactive); kept by the
    // adapter, so that a servant that goes away is forgotten there.
    POA* _yv_poa() const { return m_yv_poa; }
    void _yv_poa(POA* poa) { m_yv_poa = poa; }

protected:
    ServantBase() = default;
    // A copy is a new servant: not active anywhere.
    ServantBase(const ServantBase&) : m_yv_poa(nullptr) {}
    ServantBase& operator=(const ServantBase&) { return *this; }

    // A reference to this servant of type `repo_id`: activates the servant
    // in its default adapter when it is not active yet. The generated _this
    // wraps the result in a typed proxy.
    CORBA::Object_ptr _this_impl(const char* repo_id);

private:
    POA* m_yv_poa = nullptr;
};

// No `Servant` typedef here: IDL files of the POA module declare
// PortableServer::Servant themselves, and the runtime must not clash with
// their generated declarations. Runtime code names ServantBase* directly.

} // namespace PortableServer

#endif
