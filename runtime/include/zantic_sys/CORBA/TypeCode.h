// Type codes: the description of an IDL type that travels with anys and
// in requests of the dynamic interfaces.
//
// TypeCode is a literal type. Every type code of the runtime and of
// generated code is a static object, constant-initialised through the
// constexpr makers below, so nothing runs at start-up and files may refer
// to each other's type codes whatever order they are initialised in:
//
//   static const CORBA::TypeCode::Member _yv_tcm_Money[] = {
//       {"amount", &CORBA::_tc_longlong, 0, 0},
//       {"currency", &CORBA::_tc_string, 0, 0},
//   };
//   static CORBA::TypeCode _yv_tco_Money =
//       CORBA::TypeCode::yv_struct(CORBA::tk_struct, "IDL:Bank/Money:1.0", "Money", _yv_tcm_Money, 2);
//   const CORBA::TypeCode_ptr Bank::_tc_Money = &_yv_tco_Money;
//
// Nested type codes are named through the address of a TypeCode_ptr
// constant, so a recursive type is a plain cycle of pointers. Static type
// codes ignore _duplicate and release. Type codes decoded from CDR or made by
// the ORB's create_*_tc are counted: all type codes made together (a type
// code and the ones nested in it) share one count and one owner, which frees
// their strings, members and nested type codes together; a reference to any
// of them keeps all of them.
#ifndef YV_RT_CORBA_TYPECODE_H
#define YV_RT_CORBA_TYPECODE_H

#include "Exception.h"
#include "Types.h"

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace YV_TC {
class TypeCodeGraph;
} // namespace YV_TC

namespace CORBA {

// The modifier of a value type. (Visibility and its constants, the
// visibility of a value type's state member, belong to corbaidl.idl.)
typedef Short ValueModifier;
typedef ValueModifier& ValueModifier_out;
const ValueModifier VM_NONE = 0;
const ValueModifier VM_CUSTOM = 1;
const ValueModifier VM_ABSTRACT = 2;
const ValueModifier VM_TRUNCATABLE = 3;

class TypeCode {
public:
    // A member of a structure, exception, union or value type, or an
    // enumerator. `type` is the address of the TypeCode_ptr naming the
    // member's type (null for enumerators). Unions keep the label's value
    // converted to LongLong (enumerators by ordinal, booleans 0 and 1, the
    // default member's label is ignored); value types the visibility.
    struct Member {
        const char* name;
        const TypeCode_ptr* type;
        LongLong label;
        Short visibility;
    };

    // A type code of `kind` with a bound (strings, sequences) and an id and
    // name. The shape generated skeletons use for anonymous bounded strings
    // ("static CORBA::TypeCode _yv_tc_string_10(CORBA::tk_string, 10);") and
    // must keep.
    constexpr explicit TypeCode(TCKind kind, ULong length = 0, const char* id = "", const char* name = "")
        : m_kind(kind), m_id(id), m_name(name), m_length(length)
    {
    }
    ~TypeCode() = default;
    TypeCode(const TypeCode&) = delete;
    TypeCode& operator=(const TypeCode&) = delete;

    // ---- makers of static type codes (constant expressions)

    // null, void, the numbers, boolean, char, wchar, octet, any, TypeCode,
    // Principal, and unbounded string and wstring.
    static constexpr TypeCode yv_basic(TCKind kind) { return TypeCode(kind); }
    // tk_string, tk_wstring; bound 0: unbounded.
    static constexpr TypeCode yv_string(TCKind kind, ULong bound) { return TypeCode(kind, bound); }
    // tk_objref, tk_abstract_interface, tk_local_interface, tk_native.
    static constexpr TypeCode yv_objref(TCKind kind, const char* id, const char* name)
    {
        return TypeCode(kind, 0, id, name);
    }
    // tk_struct, tk_except.
    static constexpr TypeCode yv_struct(TCKind kind, const char* id, const char* name, const Member* members, ULong count)
    {
        return TypeCode(kind, id, name, nullptr, members, count, -1, 0);
    }
    // default_index: the position of the default member, -1 without one.
    static constexpr TypeCode yv_union(const char* id, const char* name, const TypeCode_ptr* discriminator,
                                       const Member* members, ULong count, Long default_index)
    {
        return TypeCode(tk_union, id, name, discriminator, members, count, default_index, 0);
    }
    static constexpr TypeCode yv_enum(const char* id, const char* name, const Member* enumerators, ULong count)
    {
        return TypeCode(tk_enum, id, name, nullptr, enumerators, count, -1, 0);
    }
    // tk_alias, tk_value_box.
    static constexpr TypeCode yv_alias(TCKind kind, const char* id, const char* name, const TypeCode_ptr* content)
    {
        return TypeCode(kind, id, name, content, nullptr, 0, -1, 0);
    }
    static constexpr TypeCode yv_sequence(const TypeCode_ptr* element, ULong bound)
    {
        return TypeCode(tk_sequence, bound, element);
    }
    static constexpr TypeCode yv_array(const TypeCode_ptr* element, ULong length)
    {
        return TypeCode(tk_array, length, element);
    }
    static constexpr TypeCode yv_fixed(UShort digits, Short scale) { return TypeCode(digits, scale); }
    // concrete_base: null (or the address of a nil TypeCode_ptr) for none.
    static constexpr TypeCode yv_value(const char* id, const char* name, ValueModifier modifier,
                                       const TypeCode_ptr* concrete_base, const Member* members, ULong count)
    {
        return TypeCode(tk_value, id, name, concrete_base, members, count, -1, modifier);
    }

    // A counted type code of the shape of the constructor above; the caller
    // owns the one reference.
    static TypeCode_ptr _yv_create(TCKind kind, ULong length = 0, const char* id = "", const char* name = "");

    // ---- the operations of the standard mapping

    class BadKind : public UserException {
    public:
        const char* _name() const override { return "BadKind"; }
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/TypeCode/BadKind:1.0"; }
        void _raise() const override { throw *this; }
        static BadKind* _downcast(Exception* e) { return dynamic_cast<BadKind*>(e); }
        static const BadKind* _downcast(const Exception* e) { return dynamic_cast<const BadKind*>(e); }
    };
    class Bounds : public UserException {
    public:
        const char* _name() const override { return "Bounds"; }
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/TypeCode/Bounds:1.0"; }
        void _raise() const override { throw *this; }
        static Bounds* _downcast(Exception* e) { return dynamic_cast<Bounds*>(e); }
        static const Bounds* _downcast(const Exception* e) { return dynamic_cast<const Bounds*>(e); }
    };

    constexpr TCKind kind() const { return m_kind; }
    // Same kind and parameters, names included.
    Boolean equal(TypeCode_ptr other) const;
    // Equal after looking through aliases, ignoring names; repository ids,
    // where both have one, decide alone.
    Boolean equivalent(TypeCode_ptr other) const;
    // A new type code without the optional names (type and member names),
    // aliases kept.
    TypeCode_ptr get_compact_typecode() const;

    // objref, struct, union, enum, alias, except, value, value_box, native,
    // abstract and local interfaces; BadKind for the others.
    const char* id() const;
    const char* name() const;
    // struct, union, enum, except, value.
    ULong member_count() const;
    const char* member_name(ULong index) const;
    TypeCode_ptr member_type(ULong index) const;
    // union: the label as an any of the discriminator's type (the default
    // member: the octet 0). The caller owns the any.
    Any* member_label(ULong index) const;
    TypeCode_ptr discriminator_type() const;
    Long default_index() const;
    // string, wstring, sequence (0: unbounded), array.
    ULong length() const;
    // sequence, array, alias, value_box.
    TypeCode_ptr content_type() const;
    UShort fixed_digits() const;
    Short fixed_scale() const;
    // value: PRIVATE_MEMBER (0) or PUBLIC_MEMBER (1).
    Short member_visibility(ULong index) const;
    ValueModifier type_modifier() const;
    // The base value type's type code, nil when there is none.
    TypeCode_ptr concrete_base_type() const;

    // A type code in CDR (a nil one is written as tk_null); BAD_TYPECODE
    // for a placeholder of create_recursive_tc.
    static void _yv_write(YV_CDR::OutputStream& out, TypeCode_ptr tc);
    // A new type code read from CDR (MARSHAL when malformed).
    static TypeCode_ptr _yv_read(YV_CDR::InputStream& in);

    static TypeCode_ptr _duplicate(TypeCode_ptr tc);
    static TypeCode_ptr _nil() { return nullptr; }
    // Gives up one reference of a counted type code; a no-op for the others.
    void _yv_release();

    // ---- unchecked access for the runtime's own code

    constexpr const char* yv_id() const { return m_id; }
    constexpr const char* yv_name() const { return m_name; }
    constexpr ULong yv_length() const { return m_length; }
    constexpr ULong yv_member_count() const { return m_count; }
    const Member& yv_member(ULong index) const { return m_members[index]; }
    TypeCode_ptr yv_member_type(ULong index) const { return m_members[index].type ? *m_members[index].type : nullptr; }
    // The element (sequence, array), the aliased type (alias, value_box),
    // the discriminator (union), the concrete base (value; may be nil).
    TypeCode_ptr yv_content() const { return m_content ? *m_content : nullptr; }
    constexpr Long yv_default_index() const { return m_default; }
    constexpr UShort yv_digits() const { return m_digits; }
    constexpr Short yv_scale() const { return m_scale; }
    constexpr Short yv_modifier() const { return m_modifier; }
    // Counted type codes belong to a graph; static ones to none.
    YV_TC::TypeCodeGraph* yv_graph() const { return m_graph; }
    // The type code with aliases looked through.
    TypeCode_ptr yv_unaliased() const;
    // A recursive type code made by create_recursive_tc that no enclosing
    // type has taken the place of yet.
    constexpr bool yv_is_placeholder() const { return m_placeholder; }

private:
    friend class YV_TC::TypeCodeGraph;

    constexpr TypeCode(TCKind kind, const char* id, const char* name, const TypeCode_ptr* content,
                       const Member* members, ULong count, Long default_index, Short modifier)
        : m_kind(kind), m_id(id), m_name(name), m_content(content), m_members(members), m_count(count),
          m_default(default_index), m_modifier(modifier)
    {
    }
    constexpr TypeCode(TCKind kind, ULong length, const TypeCode_ptr* content)
        : m_kind(kind), m_length(length), m_content(content)
    {
    }
    constexpr TypeCode(UShort digits, Short scale) : m_kind(tk_fixed), m_digits(digits), m_scale(scale) {}

    TCKind m_kind;
    const char* m_id = "";
    const char* m_name = "";
    ULong m_length = 0;
    const TypeCode_ptr* m_content = nullptr;
    const Member* m_members = nullptr;
    ULong m_count = 0;
    Long m_default = -1;
    UShort m_digits = 0;
    Short m_scale = 0;
    Short m_modifier = 0;
    bool m_placeholder = false;
    YV_TC::TypeCodeGraph* m_graph = nullptr;
};

void release(TypeCode_ptr tc);
inline Boolean is_nil(TypeCode_ptr tc) { return tc == nullptr; }

// The type codes of the predefined types.
extern const TypeCode_ptr _tc_null;
extern const TypeCode_ptr _tc_void;
extern const TypeCode_ptr _tc_short;
extern const TypeCode_ptr _tc_long;
extern const TypeCode_ptr _tc_ushort;
extern const TypeCode_ptr _tc_ulong;
extern const TypeCode_ptr _tc_float;
extern const TypeCode_ptr _tc_double;
extern const TypeCode_ptr _tc_boolean;
extern const TypeCode_ptr _tc_char;
extern const TypeCode_ptr _tc_octet;
extern const TypeCode_ptr _tc_any;
extern const TypeCode_ptr _tc_TypeCode;
extern const TypeCode_ptr _tc_Principal;
extern const TypeCode_ptr _tc_Object;
extern const TypeCode_ptr _tc_string;
extern const TypeCode_ptr _tc_longlong;
extern const TypeCode_ptr _tc_ulonglong;
extern const TypeCode_ptr _tc_longdouble;
extern const TypeCode_ptr _tc_wchar;
extern const TypeCode_ptr _tc_wstring;
extern const TypeCode_ptr _tc_ValueBase;
extern const TypeCode_ptr _tc_AbstractBase;
extern const TypeCode_ptr _tc_LocalBase;

} // namespace CORBA

#endif
