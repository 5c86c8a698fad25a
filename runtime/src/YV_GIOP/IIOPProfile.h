// The body of a TAG_INTERNET_IOP profile: IIOP version, host, port, object
// key and (IIOP 1.1 and later) tagged components.
#ifndef YV_GIOP_IIOPPROFILE_H
#define YV_GIOP_IIOPPROFILE_H

#include "YV_GIOP/CodeSets.h"
#include "YV_GIOP/IOR.h"
#include "YV_GIOP/MessageHeader.h"

#include <string>
#include <vector>

namespace YV_GIOP {

struct IIOPProfile {
    Version version;
    std::string host;
    CORBA::UShort port = 0;
    std::vector<CORBA::Octet> object_key;
    std::vector<TaggedComponent> components;

    // The component with that tag, or 0.
    const TaggedComponent* find(CORBA::ULong tag) const;
    // The code sets the server offers (TAG_CODE_SETS); false without one
    // or when it cannot be read.
    bool code_sets(CodeSets::Info& info) const;

    // The tagged profile (an encapsulation; components from IIOP 1.1 on).
    TaggedProfile encode() const;
    // Reads a TAG_INTERNET_IOP profile (MARSHAL when malformed). Data after
    // the components is ignored, as later IIOP versions may add some.
    static IIOPProfile decode(const TaggedProfile& profile);
};

} // namespace YV_GIOP

#endif
