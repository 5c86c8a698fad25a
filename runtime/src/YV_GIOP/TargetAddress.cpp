#include "YV_GIOP/TargetAddress.h"

#include "YV_GIOP/CdrText.h"
#include "YV_GIOP/IIOPProfile.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace YV_GIOP {

std::vector<CORBA::Octet> TargetAddress::key() const
{
    const TaggedProfile* p = nullptr;
    switch (disposition) {
    case KeyAddr:
        return written_key();
    case ProfileAddr:
        p = &profile;
        break;
    case ReferenceAddr:
        if (selected_profile_index >= ior.profiles.size())
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
        p = &ior.profiles[selected_profile_index];
        break;
    }
    if (p->tag != TAG_INTERNET_IOP)
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
    return IIOPProfile::decode(*p).object_key;
}

void TargetAddress::write(YV_CDR::OutputStream& out) const
{
    out.write_short(disposition);
    switch (disposition) {
    case KeyAddr:
        write_octet_seq(out, written_key());
        break;
    case ProfileAddr:
        out.write_ulong(profile.tag);
        write_octet_seq(out, profile.profile_data);
        break;
    case ReferenceAddr:
        out.write_ulong(selected_profile_index);
        ior.write(out);
        break;
    }
}

TargetAddress TargetAddress::read(YV_CDR::InputStream& in)
{
    TargetAddress t;
    const CORBA::Short d = in.read_short();
    switch (d) {
    case KeyAddr:
        t.object_key = read_octet_seq(in);
        break;
    case ProfileAddr:
        t.profile.tag = in.read_ulong();
        t.profile.profile_data = read_octet_seq(in);
        break;
    case ReferenceAddr:
        t.selected_profile_index = in.read_ulong();
        t.ior = IOR::read(in);
        break;
    default:
        YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
    }
    t.disposition = static_cast<Disposition>(d);
    return t;
}

} // namespace YV_GIOP
