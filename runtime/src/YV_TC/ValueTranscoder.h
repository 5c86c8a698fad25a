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

#include "zantic_sys/CORBA/ValueBase.h"
#include "zantic_sys/YV_Cxx/Ref_var.h"

#include <cstddef>
#include <vector>

namespace YV_TC {

class ValueTranscoder {
public:
    // `out` null: the value is only checked and skipped.
    ValueTranscoder(YV_CDR::InputStream& in, YV_CDR::OutputStream* out) : m_in(in), m_out(out) {}

    void value(CORBA::TypeCode_ptr tc) { walk(tc, 0); }
    // The state of a value of type `tc` (a value type's members, its bases'
    // first, or a value box's content).
    void state(CORBA::TypeCode_ptr tc);

    // Values met (value types, value boxes, values of abstract
    // interfaces) are read (as TypeCodeValues, sharing what the stream
    // read before) and written to the output, unless one of these says:
    // collect_values: each is read and appended to `into`, and left out of
    // the output; emit_values: the input holds none, and each is taken in
    // turn from `values` and written.
    typedef std::vector<YV_Cxx::Value_var<CORBA::ValueBase>> Values;
    void collect_values(Values& into) { m_collect = &into; }
    void emit_values(const Values& values) { m_emit = &values; }

    // The least octets a value of type `tc` takes (alignment not counted).
    static std::size_t min_size(CORBA::TypeCode_ptr tc);
    // Whether a value of type `tc` may hold values (or anys, which may).
    static bool may_hold_values(CORBA::TypeCode_ptr tc);

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
    void value_type(CORBA::TypeCode_ptr tc);
    void state_of(CORBA::TypeCode_ptr tc, unsigned depth);

    YV_CDR::InputStream& m_in;
    YV_CDR::OutputStream* m_out;
    Values* m_collect = nullptr;
    const Values* m_emit = nullptr;
    std::size_t m_next = 0;
};

} // namespace YV_TC

#endif
