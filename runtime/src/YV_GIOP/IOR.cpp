#include "YV_GIOP/IOR.h"

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cctype>

namespace YV_GIOP {

void IOR::write(YV_CDR::OutputStream& out) const
{
    write_text(out, type_id);
    out.write_ulong(static_cast<CORBA::ULong>(profiles.size()));
    for (const TaggedProfile& p : profiles) {
        out.write_ulong(p.tag);
        write_octet_seq(out, p.profile_data);
    }
}

IOR IOR::read(YV_CDR::InputStream& in)
{
    IOR ior;
    ior.type_id = read_text(in);
    // A profile takes at least its tag and its length.
    ior.profiles.resize(in.read_count(8));
    for (TaggedProfile& p : ior.profiles) {
        p.tag = in.read_ulong();
        p.profile_data = read_octet_seq(in);
    }
    return ior;
}

std::string IOR::to_string() const
{
    YV_CDR::OutputStream out(YV_CDR::native_little_endian, 512);
    out.write_boolean(out.little_endian());
    write(out);
    static const char digits[] = "0123456789abcdef";
    std::string text = "IOR:";
    text.reserve(4 + 2 * out.size());
    for (std::size_t i = 0; i < out.size(); ++i) {
        text += digits[out.data()[i] >> 4];
        text += digits[out.data()[i] & 0x0f];
    }
    return text;
}

IOR IOR::from_string(const std::string& text)
{
    auto bad = [] { return CORBA::MARSHAL(YV_CDR::minor_bad_length, CORBA::COMPLETED_NO); };
    if (text.size() < 4 || (text.compare(0, 4, "IOR:") != 0 && text.compare(0, 4, "ior:") != 0))
        throw bad();
    const std::size_t digits = text.size() - 4;
    if (digits == 0 || digits % 2 != 0)
        throw bad();
    std::vector<unsigned char> octets(digits / 2);
    auto value = [&](char c) -> int {
        if (std::isdigit(static_cast<unsigned char>(c)))
            return c - '0';
        const int lower = std::tolower(static_cast<unsigned char>(c));
        if (lower >= 'a' && lower <= 'f')
            return lower - 'a' + 10;
        throw bad();
    };
    for (std::size_t i = 0; i < octets.size(); ++i)
        octets[i] = static_cast<unsigned char>(value(text[4 + 2 * i]) << 4 | value(text[5 + 2 * i]));
    if (octets[0] > 1)
        throw bad();
    YV_CDR::InputStream in(octets.data(), octets.size(), octets[0] == 1);
    in.skip(1);
    return read(in);
}

} // namespace YV_GIOP
