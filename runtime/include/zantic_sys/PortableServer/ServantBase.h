// The base of every servant. A skeleton class derives from it and supplies
// the lookup of its dispatch functions, its type checks and its narrowing;
// the object adapter and the request paths use them.
//
// Servants are reference counted: a new servant has one reference (its
// maker's), each activation in a POA adds one, each deactivation drops one,
// and the servant deletes itself when the last goes. A servant that is not
// on the heap must outlive its activations (or be destroyed while active:
// its destructor makes every POA forget it).
#ifndef YV_RT_PORTABLESERVER_SERVANTBASE_H
#define YV_RT_PORTABLESERVER_SERVANTBASE_H

#include "../CORBA/Object.h"
#include "../CORBA/Types.h"
#include "../YV_FWString.h"
#include "ObjectId.h"

#include <atomic>

namespace PortableServer {

class POA;
typedef POA* POA_ptr;

class ServantBase {
public:
    // A dispatch function: serves one request on the servant.
    typedef void (*_YV_DispatcherPtr)(ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus&);

    virtual ~ServantBase();

    // The adapter _this activates the servant in (the root POA).
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

    // Reference counting of servants.
    virtual void _add_ref();
    virtual void _remove_ref();
    virtual CORBA::ULong _refcount_value();

    // The dispatch functions of the standard operations "_interface",
    // "_is_a" and "_non_existent".
    static void _get_interface_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                        CORBA::CompletionStatus& status);
    static void _is_a_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                               CORBA::CompletionStatus& status);
    static void _non_existent_dispatch(ServantBase* servant, CORBA::YV_ServerRequest_ptr request,
                                       CORBA::CompletionStatus& status);

    // Kept by the POAs: how many activations the servant has.
    void _yv_activated() { ++m_yv_activations; }
    void _yv_deactivated() { --m_yv_activations; }

protected:
    ServantBase() = default;
    // A copy is a new servant: one reference, not active anywhere.
    ServantBase(const ServantBase&) {}
    ServantBase& operator=(const ServantBase&) { return *this; }

    // A reference to this servant of type `repo_id`: inside a call on the
    // servant, the object being called; else the servant's object in its
    // default POA, activated there when the POA's policies allow (else the
    // POA's ServantNotActive or WrongPolicy). The generated _this wraps the
    // result in a typed proxy.
    CORBA::Object_ptr _this_impl(const char* repo_id);

private:
    std::atomic<CORBA::ULong> m_yv_refs{1};
    std::atomic<long> m_yv_activations{0};
};

// No `Servant` typedef here: IDL files of the POA module declare
// PortableServer::Servant themselves, and the runtime must not clash with
// their generated declarations. Runtime code names ServantBase* directly.

} // namespace PortableServer

#endif
