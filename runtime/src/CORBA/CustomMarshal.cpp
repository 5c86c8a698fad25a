#include "zantic_sys/CORBA/CustomMarshal.h"

#include "zantic_sys/CORBA/DataInputStream.h"
#include "zantic_sys/CORBA/DataOutputStream.h"

namespace CORBA {

Boolean CustomMarshal::_yv_is_chunked() const { return true; }

void CustomMarshal::_yv_marshal_state(YV_CDR::OutputStream& out) const
{
    DataOutputStream stream(out);
    // marshal() is not const in the mapping; writing leaves the value as
    // it is.
    const_cast<CustomMarshal*>(this)->marshal(&stream);
}

void CustomMarshal::_yv_unmarshal_state(YV_CDR::InputStream& in)
{
    DataInputStream stream(in);
    unmarshal(&stream);
}

} // namespace CORBA
