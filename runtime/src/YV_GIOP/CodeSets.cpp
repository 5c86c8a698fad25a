#include "YV_GIOP/CodeSets.h"

#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_CDR/OutputStream.h"

#include <algorithm>

namespace YV_GIOP {

namespace {

void write_component(YV_CDR::OutputStream& out, const CodeSets::Component& c)
{
    out.write_ulong(c.native_code_set);
    out.write_ulong(static_cast<CORBA::ULong>(c.conversion_code_sets.size()));
    for (CORBA::ULong id : c.conversion_code_sets)
        out.write_ulong(id);
}

CodeSets::Component read_component(YV_CDR::InputStream& in)
{
    CodeSets::Component c;
    c.native_code_set = in.read_ulong();
    c.conversion_code_sets.resize(in.read_count(4));
    for (CORBA::ULong& id : c.conversion_code_sets)
        id = in.read_ulong();
    return c;
}

// The octets of an encapsulation: the stream `in` reads after its
// byte-order octet.
YV_CDR::InputStream encapsulation_of(const CORBA::Octet* data, std::size_t size)
{
    if (size == 0 || data[0] > 1)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_byte_order);
    YV_CDR::InputStream in(data, size, data[0] == 1);
    in.skip(1);
    return in;
}

std::vector<CORBA::Octet> octets_of(const YV_CDR::OutputStream& out)
{
    return std::vector<CORBA::Octet>(out.data(), out.data() + out.size());
}

bool offers(const CodeSets::Component& c, CORBA::ULong id)
{
    return c.native_code_set == id
           || std::find(c.conversion_code_sets.begin(), c.conversion_code_sets.end(), id) != c.conversion_code_sets.end();
}

} // namespace

CodeSets::Info CodeSets::ours()
{
    Info info;
    // char data passes unchanged; a peer whose native set is ISO 8859-1
    // (omniORB) would otherwise convert its octets to UTF-8 for us.
    info.for_char.native_code_set = iso_8859_1;
    info.for_char.conversion_code_sets = {utf_8};
    info.for_wchar.native_code_set = utf_16;
    return info;
}

std::vector<CORBA::Octet> CodeSets::encode(const Info& info)
{
    YV_CDR::OutputStream out(YV_CDR::native_little_endian, 64);
    out.write_boolean(out.little_endian());
    write_component(out, info.for_char);
    write_component(out, info.for_wchar);
    return octets_of(out);
}

CodeSets::Info CodeSets::decode_info(const CORBA::Octet* data, std::size_t size)
{
    YV_CDR::InputStream in = encapsulation_of(data, size);
    Info info;
    info.for_char = read_component(in);
    info.for_wchar = read_component(in);
    return info;
}

std::vector<CORBA::Octet> CodeSets::encode(const Context& context)
{
    YV_CDR::OutputStream out(YV_CDR::native_little_endian, 16);
    out.write_boolean(out.little_endian());
    out.write_ulong(context.char_data);
    out.write_ulong(context.wchar_data);
    return octets_of(out);
}

CodeSets::Context CodeSets::decode_context(const CORBA::Octet* data, std::size_t size)
{
    YV_CDR::InputStream in = encapsulation_of(data, size);
    Context context;
    context.char_data = in.read_ulong();
    context.wchar_data = in.read_ulong();
    return context;
}

CodeSets::Context CodeSets::negotiate(const Info& server)
{
    Context chosen;
    const CORBA::ULong native = server.for_char.native_code_set;
    if (native == utf_8 || native == iso_8859_1)
        chosen.char_data = native;
    else if (offers(server.for_char, utf_8))
        chosen.char_data = utf_8;
    else
        chosen.char_data = iso_8859_1;
    chosen.wchar_data = utf_16;
    return chosen;
}

} // namespace YV_GIOP
