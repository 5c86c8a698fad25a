// What a custom value's unmarshal() reads its state from: the value's
// chunks in the message's CDR stream. Made by the runtime's value decoder
// around the stream it reads; a program only calls it.
#ifndef YV_RT_CORBA_DATAINPUTSTREAM_H
#define YV_RT_CORBA_DATAINPUTSTREAM_H

#include "Types.h"

namespace YV_CDR {
class InputStream;
}

namespace CORBA {

class Any;
class ValueBase;
class TypeCode;

class DataInputStream {
public:
    explicit DataInputStream(YV_CDR::InputStream& in) : m_in(in) {}
    DataInputStream(const DataInputStream&) = delete;
    DataInputStream& operator=(const DataInputStream&) = delete;
    virtual ~DataInputStream() = default;

    // What is returned as a pointer is the caller's (string_free, delete,
    // release, _remove_ref).
    virtual Any* read_any();
    virtual Boolean read_boolean();
    virtual Char read_char();
    virtual WChar read_wchar();
    virtual Octet read_octet();
    virtual Short read_short();
    virtual UShort read_ushort();
    virtual Long read_long();
    virtual ULong read_ulong();
    virtual LongLong read_longlong();
    virtual ULongLong read_ulonglong();
    virtual Float read_float();
    virtual Double read_double();
    virtual LongDouble read_longdouble();
    virtual char* read_string();
    virtual WChar* read_wstring();
    virtual Object_ptr read_Object();
    virtual ValueBase* read_Value();
    virtual TypeCode* read_TypeCode();

private:
    YV_CDR::InputStream& m_in;
};

} // namespace CORBA

#endif
