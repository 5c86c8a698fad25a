// Reads a type code from CDR into a new graph. Indirections may point at
// any type code read before within the same top-level type code, and at
// one still being read (a recursive type) only where the cycle passes
// through a structure, union, exception or value. Anything malformed, or
// nested deeper than InputStream::max_nesting, raises MARSHAL
// (minor_bad_typecode, minor_nesting, or the decoder's own codes).
#ifndef YV_RT_YV_TC_TYPECODEREADER_H
#define YV_RT_YV_TC_TYPECODEREADER_H

#include "TypeCodeGraph.h"
#include "zantic_sys/YV_CDR/InputStream.h"

#include <utility>
#include <vector>

namespace YV_TC {

class TypeCodeReader {
public:
    TypeCodeReader() = default;

    // One top-level type code: a new reference (a static type code for the
    // kinds without parameters).
    CORBA::TypeCode_ptr read(YV_CDR::InputStream& in);

private:
    struct Seen {
        const unsigned char* at;
        CORBA::TypeCode_ptr tc;
        bool complete;
    };

    CORBA::TypeCode_ptr read_tc(YV_CDR::InputStream& in, unsigned depth);
    CORBA::TypeCode_ptr follow(YV_CDR::InputStream& in);
    void read_parameters(YV_CDR::InputStream& in, CORBA::TypeCode* tc, unsigned depth);
    void read_id_and_name(YV_CDR::InputStream& in, CORBA::TypeCode* tc);
    void remember(const unsigned char* at, CORBA::TypeCode_ptr tc, bool complete);

    GraphHolder m_graph;
    std::vector<Seen> m_seen;
};

} // namespace YV_TC

#endif
