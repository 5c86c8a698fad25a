#include "zantic_sys/CORBA/TypeCode.h"

namespace CORBA {

TypeCode::TypeCode(TCKind kind, ULong length, const char* id, const char* name)
    : m_kind(kind), m_length(length), m_id(id ? id : ""), m_name(name ? name : "")
{
}

TypeCode_ptr TypeCode::_yv_create(TCKind kind, ULong length, const char* id, const char* name)
{
    TypeCode_ptr tc = new TypeCode(kind, length, id, name);
    tc->m_counted = true;
    return tc;
}

ULong TypeCode::length() const
{
    switch (m_kind) {
    case tk_string:
    case tk_wstring:
    case tk_sequence:
    case tk_array:
        return m_length;
    default:
        throw BadKind();
    }
}

const char* TypeCode::id() const
{
    return m_id.c_str();
}

const char* TypeCode::name() const
{
    return m_name.c_str();
}

Boolean TypeCode::equal(TypeCode_ptr other) const
{
    return other != nullptr && m_kind == other->m_kind && m_length == other->m_length && m_id == other->m_id;
}

TypeCode_ptr TypeCode::_duplicate(TypeCode_ptr tc)
{
    if (tc != nullptr && tc->m_counted)
        ++tc->m_refs;
    return tc;
}

void TypeCode::_yv_release()
{
    if (m_counted && --m_refs == 0)
        delete this;
}

void release(TypeCode_ptr tc)
{
    if (tc != nullptr)
        tc->_yv_release();
}

namespace {

TypeCode tc_null(tk_null);
TypeCode tc_void(tk_void);
TypeCode tc_short(tk_short);
TypeCode tc_long(tk_long);
TypeCode tc_ushort(tk_ushort);
TypeCode tc_ulong(tk_ulong);
TypeCode tc_float(tk_float);
TypeCode tc_double(tk_double);
TypeCode tc_boolean(tk_boolean);
TypeCode tc_char(tk_char);
TypeCode tc_octet(tk_octet);
TypeCode tc_any(tk_any);
TypeCode tc_TypeCode(tk_TypeCode);
TypeCode tc_Principal(tk_Principal);
TypeCode tc_Object(tk_objref, 0, "IDL:omg.org/CORBA/Object:1.0", "Object");
TypeCode tc_string(tk_string);
TypeCode tc_longlong(tk_longlong);
TypeCode tc_ulonglong(tk_ulonglong);
TypeCode tc_longdouble(tk_longdouble);
TypeCode tc_wchar(tk_wchar);
TypeCode tc_wstring(tk_wstring);
TypeCode tc_ValueBase(tk_value, 0, "IDL:omg.org/CORBA/ValueBase:1.0", "ValueBase");

} // namespace

const TypeCode_ptr _tc_null = &tc_null;
const TypeCode_ptr _tc_void = &tc_void;
const TypeCode_ptr _tc_short = &tc_short;
const TypeCode_ptr _tc_long = &tc_long;
const TypeCode_ptr _tc_ushort = &tc_ushort;
const TypeCode_ptr _tc_ulong = &tc_ulong;
const TypeCode_ptr _tc_float = &tc_float;
const TypeCode_ptr _tc_double = &tc_double;
const TypeCode_ptr _tc_boolean = &tc_boolean;
const TypeCode_ptr _tc_char = &tc_char;
const TypeCode_ptr _tc_octet = &tc_octet;
const TypeCode_ptr _tc_any = &tc_any;
const TypeCode_ptr _tc_TypeCode = &tc_TypeCode;
const TypeCode_ptr _tc_Principal = &tc_Principal;
const TypeCode_ptr _tc_Object = &tc_Object;
const TypeCode_ptr _tc_string = &tc_string;
const TypeCode_ptr _tc_longlong = &tc_longlong;
const TypeCode_ptr _tc_ulonglong = &tc_ulonglong;
const TypeCode_ptr _tc_longdouble = &tc_longdouble;
const TypeCode_ptr _tc_wchar = &tc_wchar;
const TypeCode_ptr _tc_wstring = &tc_wstring;
const TypeCode_ptr _tc_ValueBase = &tc_ValueBase;

} // namespace CORBA
