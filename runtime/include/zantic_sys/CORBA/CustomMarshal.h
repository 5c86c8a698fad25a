// The base of custom value types: the value writes and reads its own state
// through marshal() and unmarshal(), always chunked on the wire.
#ifndef YV_RT_CORBA_CUSTOMMARSHAL_H
#define YV_RT_CORBA_CUSTOMMARSHAL_H

#include "ValueBase.h"

namespace CORBA {

class DataInputStream;
class DataOutputStream;

class CustomMarshal : public virtual ValueBase {
public:
    virtual void marshal(DataOutputStream* os) = 0;
    virtual void unmarshal(DataInputStream* is) = 0;

    // Chunked, and the state is what marshal() writes: the value encoder
    // calls these.
    Boolean _yv_is_chunked() const override;
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override;
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override;

protected:
    CustomMarshal() = default;
    ~CustomMarshal() override = default;
};

} // namespace CORBA

#endif
