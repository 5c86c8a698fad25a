// Values in CDR: value tags with their repository ids, null values,
// indirections to values and ids already written in the same stream (so
// that shared and cyclic graphs keep their shape), chunks and end tags for
// truncatable values, truncation to a known base on reading.
//
// The streams keep the bookkeeping (OutputStream::value_state,
// InputStream::value_state): every value written to or read from one
// stream may refer to those before it.
#ifndef YV_RT_YV_CXX_VALUEMARSHAL_H
#define YV_RT_YV_CXX_VALUEMARSHAL_H

#include "../CORBA/Types.h"
#include "../CORBA/ValueBase.h"

#include <type_traits>

namespace YV_CDR {
class InputStream;
class OutputStream;
}

namespace YV_Cxx {

// MARSHAL minor code of a value whose type has no factory here (the
// standard "no factory" code).
constexpr CORBA::ULong minor_no_value_factory = 0x4f4d0001;

// Writes `v` (null, an indirection when this stream has it already, else
// its tag, ids and state). A value without repository ids is MARSHAL.
void write_value(YV_CDR::OutputStream& out, const CORBA::ValueBase* v);

// Reads a value: null, one read before from this stream (one more
// reference), or a new one with one reference. Its instance comes from the
// factory registered for the first of its repository ids that has one;
// `make`, when given, makes an instance of the type the caller expects,
// used when its id is among those received (or when none is) and no factory
// is registered for an earlier one. An instance of a base, where the value
// was written in chunks, gets the base's state and the rest is skipped.
// Malformed input, and a type nothing here can make, is MARSHAL.
CORBA::ValueBase* read_value(YV_CDR::InputStream& in, CORBA::ValueBase* (*make)() = nullptr);

// The `make` that read_value gets for a value of C++ type T: T's static
// _yv_create_for_unmarshal() where T has one (value boxes, concrete value
// classes the runtime may make without a factory), else none.
template <class T, class = void>
struct ValueMaker {
    static constexpr CORBA::ValueBase* (*make)() = nullptr;
};
template <class T>
struct ValueMaker<T, std::void_t<decltype(T::_yv_create_for_unmarshal())>> {
    static CORBA::ValueBase* create() { return T::_yv_create_for_unmarshal(); }
    static constexpr CORBA::ValueBase* (*make)() = &create;
};

} // namespace YV_Cxx

#endif
