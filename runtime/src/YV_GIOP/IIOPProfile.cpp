#include "YV_GIOP/IIOPProfile.h"

#include "YV_GIOP/CdrText.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_GIOP {

const TaggedComponent* IIOPProfile::find(CORBA::ULong tag) const
{
    for (const TaggedComponent& c : components)
        if (c.tag == tag)
            return &c;
    return nullptr;
}

bool IIOPProfile::code_sets(CodeSets::Info& info) const
{
    const TaggedComponent* c = find(TAG_CODE_SETS);
    if (c == nullptr)
        return false;
    try {
        info = CodeSets::decode_info(c->component_data.data(), c->component_data.size());
        return true;
    } catch (const CORBA::MARSHAL&) {
        return false;
    }
}

TaggedProfile IIOPProfile::encode() const
{
    YV_CDR::OutputStream out(YV_CDR::native_little_endian, 128);
    out.write_boolean(out.little_endian());
    out.write_octet(version.major);
    out.write_octet(version.minor);
    write_text(out, host);
    out.write_ushort(port);
    write_octet_seq(out, object_key);
    if (!(version.major == 1 && version.minor == 0)) {
        out.write_ulong(static_cast<CORBA::ULong>(components.size()));
        for (const TaggedComponent& c : components) {
            out.write_ulong(c.tag);
            write_octet_seq(out, c.component_data);
        }
    }
    TaggedProfile p;
    p.tag = TAG_INTERNET_IOP;
    p.profile_data.assign(out.data(), out.data() + out.size());
    return p;
}

IIOPProfile IIOPProfile::decode(const TaggedProfile& profile)
{
    if (profile.tag != TAG_INTERNET_IOP)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    const std::vector<CORBA::Octet>& data = profile.profile_data;
    if (data.empty() || data[0] > 1)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_byte_order);
    YV_CDR::InputStream in(data.data(), data.size(), data[0] == 1);
    in.skip(1);
    IIOPProfile p;
    p.version.major = in.read_octet();
    p.version.minor = in.read_octet();
    p.host = read_text(in);
    p.port = in.read_ushort();
    p.object_key = read_octet_seq(in);
    if (!(p.version.major == 1 && p.version.minor == 0)) {
        // A component takes at least its tag and its length.
        p.components.resize(in.read_count(8));
        for (TaggedComponent& c : p.components) {
            c.tag = in.read_ulong();
            c.component_data = read_octet_seq(in);
        }
    }
    return p;
}

} // namespace YV_GIOP
