// The base interface of the AMI reply handlers, client side. It has no
// operations of its own; generated reply handlers derive from it.
#ifndef YV_RT_MESSAGING_REPLYHANDLER_H
#define YV_RT_MESSAGING_REPLYHANDLER_H

#include "../../omg/CORBA.hh"

namespace Messaging {

class ReplyHandler;
typedef ReplyHandler* ReplyHandler_ptr;
typedef YV_Cxx::ObjRef_var<ReplyHandler> ReplyHandler_var;
typedef YV_Cxx::ObjRef_out<ReplyHandler> ReplyHandler_out;

class ReplyHandler : public virtual CORBA::Object {
public:
    static ReplyHandler_ptr _duplicate(ReplyHandler_ptr p);
    static ReplyHandler_ptr _nil() { return nullptr; }
    static ReplyHandler_ptr _narrow(CORBA::Object_ptr obj);

    static const YV_FWString _yv_fw_type_id;

protected:
    ReplyHandler() = default;
    ~ReplyHandler() override;
};

} // namespace Messaging

#endif
