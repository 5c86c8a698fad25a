// Strings in CDR: String_var and WString_var (sequence elements, structure
// members), and the bounded strings of generated structure members.
//
// A null String_var travels as the empty string: it is the value of a
// string element or member that was never assigned. A null plain string
// argument is BAD_PARAM (the streamables write those).
#ifndef YV_RT_YV_CXX_STRINGMARSHAL_H
#define YV_RT_YV_CXX_STRINGMARSHAL_H

#include "Marshal.h"
#include "StringVar.h"

namespace YV_Cxx {

template <>
struct Marshal<StringVar<char>> {
    // The length and the terminating NUL.
    static constexpr std::size_t min_size = 5;
    static void write(YV_CDR::OutputStream& out, const char* v) { out.write_string(v != nullptr ? v : ""); }
    static void read(YV_CDR::InputStream& in, StringVar<char>& v) { v = in.read_string(); }
};

template <>
struct Marshal<StringVar<CORBA::WChar>> {
    static constexpr std::size_t min_size = 4;
    static void write(YV_CDR::OutputStream& out, const CORBA::WChar* v)
    {
        static const CORBA::WChar empty[1] = {0};
        out.write_wstring(v != nullptr ? v : empty);
    }
    static void read(YV_CDR::InputStream& in, StringVar<CORBA::WChar>& v) { v = in.read_wstring(); }
};

// A string<bound> or wstring<bound> member: BAD_PARAM on output and MARSHAL
// on input when the value has more than `bound` characters.
inline void write_bounded_string(YV_CDR::OutputStream& out, const char* v, CORBA::ULong bound)
{
    out.write_string(v != nullptr ? v : "", bound);
}
inline void write_bounded_string(YV_CDR::OutputStream& out, const CORBA::WChar* v, CORBA::ULong bound)
{
    static const CORBA::WChar empty[1] = {0};
    out.write_wstring(v != nullptr ? v : empty, bound);
}
inline void read_bounded_string(YV_CDR::InputStream& in, StringVar<char>& v, CORBA::ULong bound)
{
    v = in.read_string(bound);
}
inline void read_bounded_string(YV_CDR::InputStream& in, StringVar<CORBA::WChar>& v, CORBA::ULong bound)
{
    v = in.read_wstring(bound);
}

} // namespace YV_Cxx

#endif
