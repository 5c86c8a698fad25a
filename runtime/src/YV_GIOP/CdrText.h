// Strings of the message layer as std::string: read from and written to CDR
// without going through the mapping's allocation functions.
#ifndef YV_GIOP_CDRTEXT_H
#define YV_GIOP_CDRTEXT_H

#include "zantic_sys/CORBA/Types.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <string>
#include <vector>

namespace YV_GIOP {

inline std::string read_text(YV_CDR::InputStream& in)
{
    const CORBA::ULong length = in.read_ulong();
    if (length == 0)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_string);
    if (length > in.remaining())
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_length);
    const unsigned char* p = in.read_octets(length);
    if (p[length - 1] != 0)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_string);
    return std::string(reinterpret_cast<const char*>(p), length - 1);
}

inline void write_text(YV_CDR::OutputStream& out, const std::string& s)
{
    out.write_string(s.c_str(), s.size(), 0);
}

inline std::vector<CORBA::Octet> read_octet_seq(YV_CDR::InputStream& in)
{
    const CORBA::ULong length = in.read_count(1);
    const unsigned char* p = in.read_octets(length);
    return std::vector<CORBA::Octet>(p, p + length);
}

inline void write_octet_seq(YV_CDR::OutputStream& out, const std::vector<CORBA::Octet>& v)
{
    out.write_ulong(static_cast<CORBA::ULong>(v.size()));
    out.write_octet_array(v.data(), v.size());
}

} // namespace YV_GIOP

#endif
