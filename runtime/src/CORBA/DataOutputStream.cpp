#include "zantic_sys/CORBA/DataOutputStream.h"

#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_CDR/OutputStream.h"
#include "zantic_sys/YV_Cxx/TypeCodeMarshal.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

namespace CORBA {

void DataOutputStream::write_any(const Any& value) { YV_Cxx::Marshal<Any>::write(m_out, value); }
void DataOutputStream::write_boolean(Boolean value) { m_out.write_boolean(value); }
void DataOutputStream::write_char(Char value) { m_out.write_char(value); }
void DataOutputStream::write_wchar(WChar value) { m_out.write_wchar(value); }
void DataOutputStream::write_octet(Octet value) { m_out.write_octet(value); }
void DataOutputStream::write_short(Short value) { m_out.write_short(value); }
void DataOutputStream::write_ushort(UShort value) { m_out.write_ushort(value); }
void DataOutputStream::write_long(Long value) { m_out.write_long(value); }
void DataOutputStream::write_ulong(ULong value) { m_out.write_ulong(value); }
void DataOutputStream::write_longlong(LongLong value) { m_out.write_longlong(value); }
void DataOutputStream::write_ulonglong(ULongLong value) { m_out.write_ulonglong(value); }
void DataOutputStream::write_float(Float value) { m_out.write_float(value); }
void DataOutputStream::write_double(Double value) { m_out.write_double(value); }
void DataOutputStream::write_longdouble(LongDouble value) { m_out.write_longdouble(value); }
void DataOutputStream::write_string(const char* value) { m_out.write_string(value); }
void DataOutputStream::write_wstring(const WChar* value) { m_out.write_wstring(value); }
void DataOutputStream::write_Object(Object_ptr value) { Object::_yv_write(m_out, value); }
void DataOutputStream::write_Value(ValueBase* value) { YV_Cxx::write_value(m_out, value); }
void DataOutputStream::write_TypeCode(TypeCode* value) { TypeCode::_yv_write(m_out, value); }

} // namespace CORBA
