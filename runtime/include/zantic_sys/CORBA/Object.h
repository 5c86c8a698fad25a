// Object references. Every client-side interface class derives from
// CORBA::Object. A reference names its target: an object of a POA of this
// process (served in process, the servant looked up afresh for every
// request, so a deactivated object raises OBJECT_NOT_EXIST) or an object
// elsewhere, reached through GIOP by the profiles of its IOR. Local objects
// (POAs, policies, the ORB's own objects) have no target. References are
// reference counted: _duplicate adds one, CORBA::release drops one.
#ifndef YV_RT_CORBA_OBJECT_H
#define YV_RT_CORBA_OBJECT_H

#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"
#include "../YV_FWString.h"
#include "Types.h"

#include <atomic>
#include <memory>

class YV_Streamable;

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_Cxx {
struct Operation;
} // namespace YV_Cxx

namespace PortableServer {
class POA;
class ServantBase;
} // namespace PortableServer

namespace YV_ORB {
class Reference;
} // namespace YV_ORB

namespace CORBA {

class Object {
public:
    static Object_ptr _duplicate(Object_ptr obj);
    static Object_ptr _nil() { return nullptr; }
    static Object_ptr _narrow(Object_ptr obj) { return _duplicate(obj); }
    static Object_ptr _unchecked_narrow(Object_ptr obj) { return _duplicate(obj); }

    // A reference in CDR: its IOR (a nil reference is the empty IOR).
    static void _yv_write(YV_CDR::OutputStream& out, Object_ptr obj);
    // A new reference read from CDR (nil for the empty IOR).
    static Object_ptr _yv_read(YV_CDR::InputStream& in);

    // Asks the target (the standard operations "_is_a" and "_non_existent";
    // a server that answers OBJECT_NOT_EXIST says the object is not there).
    virtual Boolean _is_a(const char* repository_id);
    virtual Boolean _non_existent();
    // True when both references name the same object.
    virtual Boolean _is_equivalent(Object_ptr other);
    virtual ULong _hash(ULong maximum);

    void _yv_add_ref();
    void _yv_release();

    // The repository id the reference was made with ("" for local objects).
    const char* _yv_repository_id() const;
    // The servant that serves the reference now (OBJECT_NOT_EXIST if none;
    // OBJ_ADAPTER for an object of another process).
    PortableServer::ServantBase* _yv_servant() const;
    // Has the target serve one request: in process, or through GIOP.
    void _yv_invoke(const char* operation, NVList_ptr args, YV_Streamable* result);
    // The same with what the proxy knows of the operation: oneway or not,
    // and the user exceptions it may raise.
    void _yv_invoke(const YV_Cxx::Operation& op, NVList_ptr args, YV_Streamable* result);

    // A new reference, with one count, to the object `oid` of `poa`.
    static Object_ptr _yv_make_reference(PortableServer::POA* poa, const Octet* oid, ULong oid_length,
                                         const char* repository_id);
    // A new reference, with one count, to what `target` names.
    static Object_ptr _yv_make(std::shared_ptr<YV_ORB::Reference> target);
    // What the reference names (null for local objects).
    const std::shared_ptr<YV_ORB::Reference>& _yv_reference() const { return m_target; }

    static const YV_FWString _yv_fw_type_id;

protected:
    // A local object (no target), or a reference to the target of `other`;
    // generated proxies are made from the reference that _this_impl gives.
    Object();
    explicit Object(Object_ptr other);
    Object(const Object& other);
    Object& operator=(const Object&) = delete;
    virtual ~Object();

private:
    std::shared_ptr<YV_ORB::Reference> m_target;
    std::atomic<long> m_refs{1};
};

void release(Object_ptr obj);
inline Boolean is_nil(Object_ptr obj) { return obj == nullptr; }

typedef YV_Cxx::ObjRef_var<Object> Object_var;
typedef YV_Cxx::ObjRef_out<Object> Object_out;

} // namespace CORBA

#endif
