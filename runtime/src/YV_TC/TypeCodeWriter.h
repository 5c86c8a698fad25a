// Writes a type code in CDR. A type code with a complex parameter list that
// was written before within the same top-level type code (a recursive
// type, or one used twice) is written as an indirection to its first
// occurrence.
#ifndef YV_RT_YV_TC_TYPECODEWRITER_H
#define YV_RT_YV_TC_TYPECODEWRITER_H

#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace YV_TC {

class TypeCodeWriter {
public:
    explicit TypeCodeWriter(YV_CDR::OutputStream& out) : m_out(out) {}

    // One top-level type code (nil: tk_null). BAD_TYPECODE for a
    // placeholder of create_recursive_tc that no type took the place of.
    void write(CORBA::TypeCode_ptr tc);

private:
    void write_encapsulated(CORBA::TypeCode_ptr tc);
    void write_id_and_name(CORBA::TypeCode_ptr tc);

    YV_CDR::OutputStream& m_out;
    // Type codes written with their parameters, and the buffer offset of
    // their kind.
    std::vector<std::pair<CORBA::TypeCode_ptr, std::size_t>> m_written;
};

} // namespace YV_TC

#endif
