// Object references. Every client-side interface class derives from
// CORBA::Object. A reference made by the object adapter names its target by
// adapter and object id; the servant is looked up afresh for every request,
// so a reference to a deactivated object raises OBJECT_NOT_EXIST. References
// are reference counted: _duplicate adds one, CORBA::release drops one.
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

    // Asks the target (the standard operations "_is_a" and "_non_existent").
    virtual Boolean _is_a(const char* repository_id);
    virtual Boolean _non_existent();
    // True when both references name the same object.
    virtual Boolean _is_equivalent(Object_ptr other);
    virtual ULong _hash(ULong maximum);

    void _yv_add_ref();
    void _yv_release();

    // The repository id the reference was made with ("" for local objects).
    const char* _yv_repository_id() const;
    // The servant that serves the reference now (OBJECT_NOT_EXIST if none).
    PortableServer::ServantBase* _yv_servant() const;
    // Serves one request on the target in process (YV_Runtime::invoke).
    void _yv_invoke(const char* operation, NVList_ptr args, YV_Streamable* result);
    // The same with what the proxy knows of the operation: oneway or not,
    // and the user exceptions it may raise.
    void _yv_invoke(const YV_Cxx::Operation& op, NVList_ptr args, YV_Streamable* result);

    // A new reference, with one count, to the object `oid` of `poa`.
    static Object_ptr _yv_make_reference(PortableServer::POA* poa, const Octet* oid, ULong oid_length,
                                         const char* repository_id);

    static const YV_FWString _yv_fw_type_id;

    struct Target;

protected:
    // A local object (no target), or a reference to the target of `other`;
    // generated proxies are made from the reference that _this_impl gives.
    Object();
    explicit Object(Object_ptr other);
    Object(const Object& other);
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    const std::shared_ptr<const Target>& _yv_target() const { return m_target; }

private:
    std::shared_ptr<const Target> m_target;
    std::atomic<long> m_refs{1};
};

void release(Object_ptr obj);
inline Boolean is_nil(Object_ptr obj) { return obj == nullptr; }

typedef YV_Cxx::ObjRef_var<Object> Object_var;
typedef YV_Cxx::ObjRef_out<Object> Object_out;

} // namespace CORBA

#endif
