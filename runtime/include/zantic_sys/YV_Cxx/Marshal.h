// How a value of a C++ mapped type is written to and read from CDR: one
// specialisation of Marshal<T> per C++ type, each with
//
//   static void write(YV_CDR::OutputStream& out, const T& v);
//   static void read(YV_CDR::InputStream& in, T& v);
//   static constexpr std::size_t min_size;   // least octets one value takes
//
// min_size bounds the counts a decoder accepts: a sequence of n elements
// needs n * min_size octets left, so a forged count never makes the
// decoder allocate beyond the message.
//
// The runtime specialises the primitives here, and strings, sequences,
// arrays, anys, type codes and references beside their classes. Generated
// client code specialises structures, unions, enumerations and exceptions
// (at global scope, after the declarations of its header), with the
// function bodies out of line in the client source file.
#ifndef YV_RT_YV_CXX_MARSHAL_H
#define YV_RT_YV_CXX_MARSHAL_H

#include "../CORBA/Types.h"
#include "../YV_CDR/InputStream.h"
#include "../YV_CDR/OutputStream.h"

#include <cstddef>

namespace YV_Cxx {

template <class T, class Enable = void>
struct Marshal;

#define YV_MARSHAL_PRIMITIVE(type, op, size)                                                          \
    template <>                                                                                      \
    struct Marshal<type> {                                                                           \
        static constexpr std::size_t min_size = size;                                                \
        static void write(YV_CDR::OutputStream& out, type v) { out.write_##op(v); }                 \
        static void read(YV_CDR::InputStream& in, type& v) { v = in.read_##op(); }                  \
    };
YV_MARSHAL_PRIMITIVE(CORBA::Boolean, boolean, 1)
YV_MARSHAL_PRIMITIVE(CORBA::Char, char, 1)
YV_MARSHAL_PRIMITIVE(CORBA::Octet, octet, 1)
YV_MARSHAL_PRIMITIVE(CORBA::WChar, wchar, 1)
YV_MARSHAL_PRIMITIVE(CORBA::Short, short, 2)
YV_MARSHAL_PRIMITIVE(CORBA::UShort, ushort, 2)
YV_MARSHAL_PRIMITIVE(CORBA::Long, long, 4)
YV_MARSHAL_PRIMITIVE(CORBA::ULong, ulong, 4)
YV_MARSHAL_PRIMITIVE(CORBA::LongLong, longlong, 8)
YV_MARSHAL_PRIMITIVE(CORBA::ULongLong, ulonglong, 8)
YV_MARSHAL_PRIMITIVE(CORBA::Float, float, 4)
YV_MARSHAL_PRIMITIVE(CORBA::Double, double, 8)
YV_MARSHAL_PRIMITIVE(CORBA::LongDouble, longdouble, 16)
#undef YV_MARSHAL_PRIMITIVE

} // namespace YV_Cxx

#endif
