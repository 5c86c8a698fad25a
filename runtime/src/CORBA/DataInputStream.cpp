#include "zantic_sys/CORBA/DataInputStream.h"

#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_Cxx/TypeCodeMarshal.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include <memory>

namespace CORBA {

Any* DataInputStream::read_any()
{
    auto value = std::make_unique<Any>();
    YV_Cxx::Marshal<Any>::read(m_in, *value);
    return value.release(); // the caller's
}

Boolean DataInputStream::read_boolean() { return m_in.read_boolean(); }
Char DataInputStream::read_char() { return m_in.read_char(); }
WChar DataInputStream::read_wchar() { return m_in.read_wchar(); }
Octet DataInputStream::read_octet() { return m_in.read_octet(); }
Short DataInputStream::read_short() { return m_in.read_short(); }
UShort DataInputStream::read_ushort() { return m_in.read_ushort(); }
Long DataInputStream::read_long() { return m_in.read_long(); }
ULong DataInputStream::read_ulong() { return m_in.read_ulong(); }
LongLong DataInputStream::read_longlong() { return m_in.read_longlong(); }
ULongLong DataInputStream::read_ulonglong() { return m_in.read_ulonglong(); }
Float DataInputStream::read_float() { return m_in.read_float(); }
Double DataInputStream::read_double() { return m_in.read_double(); }
LongDouble DataInputStream::read_longdouble() { return m_in.read_longdouble(); }
char* DataInputStream::read_string() { return m_in.read_string(); }
WChar* DataInputStream::read_wstring() { return m_in.read_wstring(); }
Object_ptr DataInputStream::read_Object() { return Object::_yv_read(m_in); }
ValueBase* DataInputStream::read_Value() { return YV_Cxx::read_value(m_in); }
TypeCode* DataInputStream::read_TypeCode() { return TypeCode::_yv_read(m_in); }

} // namespace CORBA
