// Type codes: the kind of a value, and for bounded strings their bound.
// The constants of the basic kinds are static objects that release never
// frees; type codes made with _yv_create are reference counted.
#ifndef YV_RT_CORBA_TYPECODE_H
#define YV_RT_CORBA_TYPECODE_H

#include "SystemException.h"
#include "Types.h"

#include <atomic>
#include <string>

namespace CORBA {

class TypeCode {
public:
    // A type code that lives as long as the program (a static object).
    explicit TypeCode(TCKind kind, ULong length = 0, const char* id = "", const char* name = "");
    ~TypeCode() = default;
    TypeCode(const TypeCode&) = delete;
    TypeCode& operator=(const TypeCode&) = delete;

    // A reference-counted type code; the caller owns the one reference.
    static TypeCode_ptr _yv_create(TCKind kind, ULong length = 0, const char* id = "", const char* name = "");

    TCKind kind() const { return m_kind; }
    // The bound of a string or sequence type (0: unbounded).
    ULong length() const;
    const char* id() const;
    const char* name() const;
    Boolean equal(TypeCode_ptr other) const;
    Boolean equivalent(TypeCode_ptr other) const { return equal(other); }

    static TypeCode_ptr _duplicate(TypeCode_ptr tc);
    static TypeCode_ptr _nil() { return nullptr; }
    // Gives up one reference of a counted type code; a no-op for the others.
    void _yv_release();

    class BadKind : public UserException {
    public:
        const char* _name() const override { return "BadKind"; }
        const char* _rep_id() const override { return "IDL:omg.org/CORBA/TypeCode/BadKind:1.0"; }
        void _raise() const override { throw *this; }
    };

private:
    TCKind m_kind;
    ULong m_length;
    std::string m_id;
    std::string m_name;
    bool m_counted = false;
    std::atomic<long> m_refs{1};
};

void release(TypeCode_ptr tc);
inline Boolean is_nil(TypeCode_ptr tc) { return tc == nullptr; }

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

} // namespace CORBA

#endif
