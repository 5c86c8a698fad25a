#include "../../include/zantic_sys/YV_CDR/InputStream.h"

#include "../../include/zantic_sys/CORBA/SystemException.h"
#include "../../include/zantic_sys/CORBA/string_functions.h"

namespace YV_CDR {

void InputStream::fail(CORBA::ULong minor) { throw CORBA::MARSHAL(minor, CORBA::COMPLETED_NO); }

void InputStream::read_boolean_array(CORBA::Boolean* v, std::size_t n)
{
    const unsigned char* p = take(n);
    for (std::size_t i = 0; i < n; ++i) {
        if (p[i] > 1)
            fail(minor_bad_boolean);
        v[i] = p[i] == 1;
    }
}

char* InputStream::read_string(CORBA::ULong bound)
{
    const CORBA::ULong length = read_ulong();
    if (length == 0)
        fail(minor_bad_string);
    if (length > remaining())
        fail(minor_bad_length);
    if (bound != 0 && length - 1 > bound)
        fail(minor_bound);
    const unsigned char* p = take(length);
    if (p[length - 1] != 0)
        fail(minor_bad_string);
    char* s = CORBA::string_alloc(length - 1);
    std::memcpy(s, p, length);
    return s;
}

InputStream InputStream::encapsulation()
{
    const CORBA::ULong length = read_ulong();
    if (length == 0 || length > remaining())
        fail(minor_bad_length);
    const unsigned char* p = take(length);
    if (p[0] > 1)
        fail(minor_bad_byte_order);
    InputStream inner(p, length, p[0] == 1, 0);
    inner.m_giop_minor = m_giop_minor;
    inner.m_cur = p + 1;
    return inner;
}

} // namespace YV_CDR
