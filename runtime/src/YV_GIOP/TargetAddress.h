// How a GIOP 1.2 request names its target: by object key, by the profile the
// client chose, or by the whole reference and the index of that profile.
// GIOP 1.0 and 1.1 always send the object key.
#ifndef YV_GIOP_TARGETADDRESS_H
#define YV_GIOP_TARGETADDRESS_H

#include "YV_GIOP/IOR.h"

#include <vector>

namespace YV_GIOP {

struct TargetAddress {
    enum Disposition : CORBA::Short { KeyAddr = 0, ProfileAddr = 1, ReferenceAddr = 2 };

    Disposition disposition = KeyAddr;
    std::vector<CORBA::Octet> object_key;  // KeyAddr
    // KeyAddr, writing: the key kept by the caller, written instead of
    // `object_key` when set (a request names its target without a copy).
    const std::vector<CORBA::Octet>* key_ref = nullptr;
    TaggedProfile profile;                 // ProfileAddr
    CORBA::ULong selected_profile_index = 0;  // ReferenceAddr
    IOR ior;                                  // ReferenceAddr

    // The object key, whatever the disposition: ProfileAddr and
    // ReferenceAddr name it through an IIOP profile (MARSHAL when the
    // profile is not one, or the index is out of range).
    std::vector<CORBA::Octet> key() const;
    // The key a KeyAddr target writes.
    const std::vector<CORBA::Octet>& written_key() const { return key_ref != nullptr ? *key_ref : object_key; }

    void write(YV_CDR::OutputStream& out) const;
    static TargetAddress read(YV_CDR::InputStream& in);
};

} // namespace YV_GIOP

#endif
