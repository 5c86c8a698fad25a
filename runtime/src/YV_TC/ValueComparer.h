// Compares two values of one type in CDR, each in its own stream (byte
// orders and alignment may differ), by their type code: numbers by value
// (floating point bit for bit), strings by characters, anys by type and
// value, type codes with equal(), object references by their IORs, values
// by their state and the shape of what they reach.
#ifndef YV_RT_YV_TC_VALUECOMPARER_H
#define YV_RT_YV_TC_VALUECOMPARER_H

#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/CORBA/ValueBase.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_Cxx/Ref_var.h"

#include <vector>

namespace YV_TC {

class ValueComparer {
public:
    ValueComparer(YV_CDR::InputStream& a, YV_CDR::InputStream& b) : m_a(a), m_b(b) {}
    ValueComparer(const ValueComparer&) = delete;
    ValueComparer& operator=(const ValueComparer&) = delete;
    // Frees the graphs of values read (which may have cycles).
    ~ValueComparer();

    // True when the two values are equal; MARSHAL when either is malformed.
    bool equal(CORBA::TypeCode_ptr tc) { return walk(tc, 0); }

private:
    bool walk(CORBA::TypeCode_ptr tc, unsigned depth);
    bool strings();
    bool octet_sequences();
    bool object_references();
    bool fixed(CORBA::TypeCode_ptr tc);
    bool long_doubles();
    bool values(CORBA::TypeCode_ptr tc);

    YV_CDR::InputStream& m_a;
    YV_CDR::InputStream& m_b;
    // The values read, kept until the end (a later value may refer to one).
    std::vector<YV_Cxx::Value_var<CORBA::ValueBase>> m_read;
};

} // namespace YV_TC

#endif
