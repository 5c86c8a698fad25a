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

#include <functional>
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
// reference), or a new one with one reference. `formal_id` and `make`
// describe the type the caller expects (either may be null): the id stands
// for the value's type when the value comes without type information (as
// omniORB sends a value of the formal type), and `make` makes an instance
// of that type without a factory. The instance comes from the factory
// registered for the first of the value's repository ids that has one, or
// from `make` when that id is the formal type's. An instance of a base,
// where the value was written in chunks, gets the base's state and the
// rest is skipped. Malformed input, and a type nothing here can make, is
// MARSHAL.
CORBA::ValueBase* read_value(YV_CDR::InputStream& in, const char* formal_id = nullptr,
                             CORBA::ValueBase* (*make)() = nullptr);

// Called by a value's _yv_marshal_state and _yv_unmarshal_state between
// its base's state and its own. A chunked value is written with a chunk per
// level of inheritance, as omniORB writes it; reading needs nothing (the
// input stream follows chunk boundaries wherever they lie).
void end_base_state(YV_CDR::OutputStream& out);
void end_base_state(YV_CDR::InputStream& in);

// Reads a value as read_value does, but every instance comes from `make`
// (no factory is asked): a value whose ids do not include that of the
// instance `make` gives is MARSHAL. The runtime reads values it knows only
// by their type codes this way.
CORBA::ValueBase* read_value_made(YV_CDR::InputStream& in, const char* formal_id,
                                  const std::function<CORBA::ValueBase*()>& make);

// The stream's table stops holding the values read so far for which
// `which` is true: whoever holds them keeps them alive for the rest of the
// stream (so that a graph with cycles can be freed once its holder goes).
void disown_read_values(YV_CDR::InputStream& in, bool (*which)(CORBA::ValueBase*));

// What read_value gets for a value of C++ type T: T's static
// _yv_value_id() (its repository id) and _yv_create_for_unmarshal() (value
// boxes, and classes the runtime may make without a factory), where T has
// them.
template <class T, class = void>
struct ValueFormalMake {
    static constexpr CORBA::ValueBase* (*make)() = nullptr;
};
template <class T>
struct ValueFormalMake<T, std::void_t<decltype(T::_yv_create_for_unmarshal())>> {
    static CORBA::ValueBase* create() { return T::_yv_create_for_unmarshal(); }
    static constexpr CORBA::ValueBase* (*make)() = &create;
};
template <class T, class = void>
struct ValueFormalId {
    static const char* id() { return nullptr; }
};
template <class T>
struct ValueFormalId<T, std::void_t<decltype(T::_yv_value_id())>> {
    static const char* id() { return T::_yv_value_id(); }
};

template <class T>
CORBA::ValueBase* read_value_of(YV_CDR::InputStream& in)
{
    return read_value(in, ValueFormalId<T>::id(), ValueFormalMake<T>::make);
}

} // namespace YV_Cxx

#endif
