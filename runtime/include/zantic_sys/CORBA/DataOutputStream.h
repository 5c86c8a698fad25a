// What a custom value's marshal() writes its state to: the value's chunks
// in the message's CDR stream. Made by the runtime's value encoder around
// the stream it writes to; a program only calls it.
#ifndef YV_RT_CORBA_DATAOUTPUTSTREAM_H
#define YV_RT_CORBA_DATAOUTPUTSTREAM_H

#include "Types.h"

namespace YV_CDR {
class OutputStream;
}

namespace CORBA {

class Any;
class ValueBase;
class TypeCode;

class DataOutputStream {
public:
    explicit DataOutputStream(YV_CDR::OutputStream& out) : m_out(out) {}
    DataOutputStream(const DataOutputStream&) = delete;
    DataOutputStream& operator=(const DataOutputStream&) = delete;
    virtual ~DataOutputStream() = default;

    virtual void write_any(const Any& value);
    virtual void write_boolean(Boolean value);
    virtual void write_char(Char value);
    virtual void write_wchar(WChar value);
    virtual void write_octet(Octet value);
    virtual void write_short(Short value);
    virtual void write_ushort(UShort value);
    virtual void write_long(Long value);
    virtual void write_ulong(ULong value);
    virtual void write_longlong(LongLong value);
    virtual void write_ulonglong(ULongLong value);
    virtual void write_float(Float value);
    virtual void write_double(Double value);
    virtual void write_longdouble(LongDouble value);
    virtual void write_string(const char* value);
    virtual void write_wstring(const WChar* value);
    virtual void write_Object(Object_ptr value);
    virtual void write_Value(ValueBase* value);
    virtual void write_TypeCode(TypeCode* value);

private:
    YV_CDR::OutputStream& m_out;
};

} // namespace CORBA

#endif
