// The value of an any as it arrived in CDR: its octets, with what decoding
// them needs (byte order, alignment phase of the first octet, GIOP minor
// version for wide characters). Never changed once made, so anys share it.
//
// A type that may hold values (value types, value boxes, abstract
// interfaces, anys) is kept with its values apart: the values as values
// (they may share with others of the message they came in, as omniORB
// writes an any's value as an indirection to one before it), the rest
// transcoded without them; such octets are always written again through
// the type code, the values put back in.
#ifndef YV_RT_YV_TC_ENCODEDVALUE_H
#define YV_RT_YV_TC_ENCODEDVALUE_H

#include "TypeCodeValue.h"
#include "zantic_sys/YV_CDR/InputStream.h"

#include <cstddef>
#include <vector>

namespace YV_TC {

struct EncodedValue {
    std::vector<unsigned char> octets;
    bool little_endian = YV_CDR::native_little_endian;
    std::size_t phase = 0;
    unsigned giop_minor = 2;
    bool values_apart = false;
    std::vector<YV_Cxx::Value_var<CORBA::ValueBase>> values;

    EncodedValue() = default;
    EncodedValue(const EncodedValue&) = delete;
    EncodedValue& operator=(const EncodedValue&) = delete;
    ~EncodedValue() { TypeCodeValue::drop(values); }

    // A stream over the octets.
    YV_CDR::InputStream stream() const
    {
        YV_CDR::InputStream in(octets.data(), octets.size(), little_endian, phase);
        in.giop_minor(giop_minor);
        return in;
    }
};

} // namespace YV_TC

#endif
