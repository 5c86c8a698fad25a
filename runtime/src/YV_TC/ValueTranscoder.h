// Walks one value in CDR by its type code: checks it and moves past it
// (skip), or also writes it into another stream (transcode), which may have
// another byte order and alignment. Every value nested in another (members,
// elements, anys in anys) counts against InputStream::max_nesting; counts
// are checked against the octets left before anything is looped over.
#ifndef YV_RT_YV_TC_VALUETRANSCODER_H
#define YV_RT_YV_TC_VALUETRANSCODER_H

#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cstddef>

namespace YV_TC {

class ValueTranscoder {
public:
    // `out` null: the value is only checked and skipped.
    ValueTranscoder(YV_CDR::InputStream& in, YV_CDR::OutputStream* out) : m_in(in), m_out(out) {}

    void value(CORBA::TypeCode_ptr tc) { walk(tc, 0); }

    // The least octets a value of type `tc` takes (alignment not counted).
    static std::size_t min_size(CORBA::TypeCode_ptr tc);

private:
    void walk(CORBA::TypeCode_ptr tc, unsigned depth);
    void elements(CORBA::TypeCode_ptr element, CORBA::ULong n, unsigned depth);
    void primitives(std::size_t size, std::size_t n);
    void booleans(std::size_t n);
    void union_value(CORBA::TypeCode_ptr tc, unsigned depth);
    void object_reference();
    void fixed(CORBA::TypeCode_ptr tc);
    void long_double();
    void string(CORBA::ULong bound);
    void wide_string(CORBA::ULong bound);
    void octet_sequence();

    YV_CDR::InputStream& m_in;
    YV_CDR::OutputStream* m_out;
};

} // namespace YV_TC

#endif
