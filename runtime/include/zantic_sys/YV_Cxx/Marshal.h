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
// The runtime specialises the primitives here; strings (StringMarshal.h),
// sequences (SequenceMarshal.h), arrays (ArrayMarshal.h), references
// (RefMarshal.h) and fixed-point types (FixedT.h) beside; anys and type
// codes with their classes. Generated client code specialises structures,
// unions, enumerations and exceptions (at global scope, after the
// declarations of its header), with the function bodies out of line in the
// client source file.
//
// HasMarshal<T> says whether a specialisation has been declared: the
// streamables of a type without one raise MARSHAL when asked to travel.
#ifndef YV_RT_YV_CXX_MARSHAL_H
#define YV_RT_YV_CXX_MARSHAL_H

#include "../CORBA/Types.h"
#include "../YV_CDR/InputStream.h"
#include "../YV_CDR/OutputStream.h"

#include <cstddef>
#include <type_traits>

namespace YV_Cxx {

template <class T, class Enable = void>
struct Marshal;

template <class T, class Enable = void>
struct HasMarshal : std::false_type {
};
template <class T>
struct HasMarshal<T, std::void_t<decltype(Marshal<T>::min_size)>> : std::true_type {
};

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

// The enumerations of the CORBA namespace. IDL that declares them again (a
// copy of an ORB's own IDL) uses the runtime's, so their marshaling is here
// and not in generated code; it is the one generated for an enumeration.
template <class E, E Last>
struct EnumMarshal {
    static constexpr std::size_t min_size = 4;
    static void write(YV_CDR::OutputStream& out, E v) { out.write_ulong(static_cast<CORBA::ULong>(v)); }
    static void read(YV_CDR::InputStream& in, E& v)
    {
        const CORBA::ULong n = in.read_ulong();
        if (n > static_cast<CORBA::ULong>(Last))
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
        v = static_cast<E>(n);
    }
};
template <>
struct Marshal<CORBA::TCKind> : EnumMarshal<CORBA::TCKind, CORBA::tk_local_interface> {
};
template <>
struct Marshal<CORBA::CompletionStatus> : EnumMarshal<CORBA::CompletionStatus, CORBA::COMPLETED_MAYBE> {
};

// Runs of values: primitives whose CDR form is their memory image (the
// integers, float and double, octets and chars) go as one block, booleans
// checked octet by octet, everything else value by value.
template <class T>
struct IsBlockPrimitive
    : std::integral_constant<bool, (std::is_integral<T>::value || std::is_floating_point<T>::value) &&
                                       !std::is_same<T, CORBA::Boolean>::value &&
                                       !std::is_same<T, CORBA::WChar>::value &&
                                       !std::is_same<T, CORBA::LongDouble>::value> {
};

template <class T>
inline void write_values(YV_CDR::OutputStream& out, const T* v, std::size_t n)
{
    if constexpr (IsBlockPrimitive<T>::value && sizeof(T) == 1) {
        out.write_octet_array(reinterpret_cast<const CORBA::Octet*>(v), n);
    } else if constexpr (IsBlockPrimitive<T>::value) {
        out.write_array(v, n);
    } else if constexpr (std::is_same<T, CORBA::Boolean>::value) {
        out.write_boolean_array(v, n);
    } else {
        for (std::size_t i = 0; i < n; ++i)
            Marshal<T>::write(out, v[i]);
    }
}

template <class T>
inline void read_values(YV_CDR::InputStream& in, T* v, std::size_t n)
{
    if constexpr (IsBlockPrimitive<T>::value && sizeof(T) == 1) {
        in.read_octet_array(reinterpret_cast<CORBA::Octet*>(v), n);
    } else if constexpr (IsBlockPrimitive<T>::value) {
        in.read_array(v, n);
    } else if constexpr (std::is_same<T, CORBA::Boolean>::value) {
        in.read_boolean_array(v, n);
    } else {
        for (std::size_t i = 0; i < n; ++i)
            Marshal<T>::read(in, v[i]);
    }
}

} // namespace YV_Cxx

#endif
