// The ORB of the process: there is one, made by ORB_init. Requests are served
// in process, so run() and work_pending() have nothing to wait for.
#ifndef YV_RT_CORBA_ORB_H
#define YV_RT_CORBA_ORB_H

#include "../YV_Cxx/Ref_var.h"
#include "Exception.h"
#include "Object.h"
#include "TypeCode.h"
#include "Types.h"

namespace CORBA {

class ORB {
public:
    class InvalidName : public UserException {
    public:
        const char* _name() const override { return "InvalidName"; }
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/ORB/InvalidName:1.0"; }
        void _raise() const override { throw *this; }
    };

    // "RootPOA" gives the root object adapter; other names: InvalidName.
    Object_ptr resolve_initial_references(const char* identifier);
    void run();
    void shutdown(Boolean wait_for_completion = false);
    void destroy();
    Boolean work_pending();
    void perform_work();
    Boolean _yv_is_shut_down() const { return m_shut_down; }

    static ORB_ptr _duplicate(ORB_ptr orb) { return orb; }
    static ORB_ptr _nil() { return nullptr; }
    void _yv_release() {}

    // The process's ORB.
    static ORB_ptr _yv_instance();

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
    bool m_shut_down = false;
};

ORB_ptr ORB_init(int& argc, char** argv, const char* orb_identifier = "");
inline void release(ORB_ptr) {}
inline Boolean is_nil(ORB_ptr orb) { return orb == nullptr; }

typedef YV_Cxx::ObjRef_var<ORB> ORB_var;

} // namespace CORBA

#include "../YV_Cxx/TypeCodeFactory.h"

#endif
