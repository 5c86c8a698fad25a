// The ORB of the process, made by ORB_init (later calls give the same ORB
// until it is destroyed; then ORB_init makes a new one). Its threads serve
// requests from the network as soon as a POA manager is active: run()
// only waits for shutdown.
#ifndef YV_RT_CORBA_ORB_H
#define YV_RT_CORBA_ORB_H

#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"
#include "../YV_Cxx/Sequence.h"
#include "../YV_Cxx/Var_out.h"
#include "../YV_Cxx/Var_var.h"
#include "Exception.h"
#include "Object.h"
#include "String_var.h"
#include "TypeCode.h"
#include "Types.h"
#include "ValueFactoryBase.h"

namespace CORBA {

class ORB {
public:
    class InvalidName : public UserException {
    public:
        const char* _name() const override { return "InvalidName"; }
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/ORB/InvalidName:1.0"; }
        void _raise() const override { throw *this; }
    };

    typedef char* ObjectId;
    typedef String_var ObjectId_var;
    typedef YV_Cxx::UnboundedSequence<String_var> ObjectIdList;
    typedef YV_Cxx::Var_var<ObjectIdList> ObjectIdList_var;
    typedef YV_Cxx::Var_out<ObjectIdList> ObjectIdList_out;

    // "IOR:..." of the reference (a local object: MARSHAL).
    char* object_to_string(Object_ptr obj);
    // IOR:, corbaloc: and corbaname: strings; BAD_PARAM when malformed.
    Object_ptr string_to_object(const char* text);

    // "RootPOA", names registered here, names given by -ORBInitRef, and
    // any name through -ORBDefaultInitRef (<url>/<name>); InvalidName else.
    Object_ptr resolve_initial_references(const char* identifier);
    ObjectIdList* list_initial_services();
    // InvalidName for an empty or taken name, BAD_PARAM for nil.
    void register_initial_reference(const char* identifier, Object_ptr obj);

    // Requests are served by the ORB's threads: there is never work for the
    // caller's thread (BAD_INV_ORDER after shutdown).
    Boolean work_pending();
    void perform_work();
    // Waits until the ORB is shut down, then completes the shutdown.
    void run();
    // Shuts the ORB down: POAs destroyed, connections closed. With
    // `wait_for_completion`, after the requests being served are done
    // (BAD_INV_ORDER from inside one); without, the shutdown completes in
    // run() or destroy().
    void shutdown(Boolean wait_for_completion = false);
    // Shuts down (waiting) if needed and frees what the ORB holds.
    void destroy();

    static ORB_ptr _duplicate(ORB_ptr orb) { return orb; }
    static ORB_ptr _nil() { return nullptr; }
    void _yv_release() {}
    Boolean _yv_is_shut_down() const;

    // The process's ORB.
    static ORB_ptr _yv_instance();

    // Value factories (the process's, by repository id). register hands
    // back the factory it replaces (the caller releases it) or null, and
    // takes a reference to `factory` (null: BAD_PARAM); lookup gives one
    // more reference, or null; unregistering an id without a factory is
    // BAD_PARAM.
    ValueFactory register_value_factory(const char* id, ValueFactory factory);
    void unregister_value_factory(const char* id);
    ValueFactory lookup_value_factory(const char* id);

    // Type code factory (YV_Cxx/TypeCodeFactory.h). The members are a
    // sequence of the standard structures of corbaidl.idl (StructMemberSeq,
    // UnionMemberSeq, EnumMemberSeq, ValueMemberSeq), or of anything with
    // their member names.
    template <class Members>
    TypeCode_ptr create_struct_tc(const char* id, const char* name, const Members& members);
    template <class Members>
    TypeCode_ptr create_union_tc(const char* id, const char* name, TypeCode_ptr discriminator_type,
                                 const Members& members);
    template <class Members>
    TypeCode_ptr create_enum_tc(const char* id, const char* name, const Members& members);
    template <class Members>
    TypeCode_ptr create_exception_tc(const char* id, const char* name, const Members& members);
    template <class Members>
    TypeCode_ptr create_value_tc(const char* id, const char* name, ValueModifier type_modifier,
                                 TypeCode_ptr concrete_base, const Members& members);
    TypeCode_ptr create_alias_tc(const char* id, const char* name, TypeCode_ptr original_type);
    TypeCode_ptr create_interface_tc(const char* id, const char* name);
    TypeCode_ptr create_string_tc(ULong bound);
    TypeCode_ptr create_wstring_tc(ULong bound);
    TypeCode_ptr create_fixed_tc(UShort digits, Short scale);
    TypeCode_ptr create_sequence_tc(ULong bound, TypeCode_ptr element_type);
    TypeCode_ptr create_array_tc(ULong length, TypeCode_ptr element_type);
    TypeCode_ptr create_recursive_tc(const char* id);
    TypeCode_ptr create_value_box_tc(const char* id, const char* name, TypeCode_ptr boxed_type);
    TypeCode_ptr create_native_tc(const char* id, const char* name);
    TypeCode_ptr create_abstract_interface_tc(const char* id, const char* name);
    TypeCode_ptr create_local_interface_tc(const char* id, const char* name);

private:
    ORB() = default;
    void check_running() const;
};

ORB_ptr ORB_init(int& argc, char** argv, const char* orb_identifier = "");
inline void release(ORB_ptr) {}
inline Boolean is_nil(ORB_ptr orb) { return orb == nullptr; }

typedef YV_Cxx::ObjRef_var<ORB> ORB_var;
typedef YV_Cxx::ObjRef_out<ORB> ORB_out;

} // namespace CORBA

#include "../YV_Cxx/TypeCodeFactory.h"

#endif
