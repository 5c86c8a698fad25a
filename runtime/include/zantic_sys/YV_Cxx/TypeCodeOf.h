// The type code of a C++ type, for the streamables that carry it. Types
// without a specialisation answer tk_null; a client header may specialise
// the template for the types it declares.
#ifndef YV_RT_YV_CXX_TYPECODEOF_H
#define YV_RT_YV_CXX_TYPECODEOF_H

#include "../CORBA/TypeCode.h"

namespace CORBA {
class Any;
class Object;
class ValueBase;
} // namespace CORBA

namespace YV_Cxx {

template <class T>
struct TypeCodeOf {
    static CORBA::TypeCode_ptr get() { return CORBA::_tc_null; }
};

#define YV_TYPECODE_OF(type, constant)                                \
    template <>                                                       \
    struct TypeCodeOf<type> {                                         \
        static CORBA::TypeCode_ptr get() { return CORBA::constant; }  \
    };
YV_TYPECODE_OF(CORBA::Short, _tc_short)
YV_TYPECODE_OF(CORBA::UShort, _tc_ushort)
YV_TYPECODE_OF(CORBA::Long, _tc_long)
YV_TYPECODE_OF(CORBA::ULong, _tc_ulong)
YV_TYPECODE_OF(CORBA::LongLong, _tc_longlong)
YV_TYPECODE_OF(CORBA::ULongLong, _tc_ulonglong)
YV_TYPECODE_OF(CORBA::Float, _tc_float)
YV_TYPECODE_OF(CORBA::Double, _tc_double)
YV_TYPECODE_OF(CORBA::LongDouble, _tc_longdouble)
YV_TYPECODE_OF(CORBA::Boolean, _tc_boolean)
YV_TYPECODE_OF(CORBA::Char, _tc_char)
YV_TYPECODE_OF(CORBA::WChar, _tc_wchar)
YV_TYPECODE_OF(CORBA::Octet, _tc_octet)
YV_TYPECODE_OF(char*, _tc_string)
YV_TYPECODE_OF(CORBA::WChar*, _tc_wstring)
YV_TYPECODE_OF(CORBA::Any, _tc_any)
YV_TYPECODE_OF(CORBA::Object, _tc_Object)
YV_TYPECODE_OF(CORBA::TypeCode, _tc_TypeCode)
YV_TYPECODE_OF(CORBA::ValueBase, _tc_ValueBase)
#undef YV_TYPECODE_OF

} // namespace YV_Cxx

#endif
