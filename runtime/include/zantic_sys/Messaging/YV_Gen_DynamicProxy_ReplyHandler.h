// The in-process proxy of a reply handler: a reference that forwards every
// request to its target through the runtime.
#ifndef YV_RT_MESSAGING_YV_GEN_DYNAMICPROXY_REPLYHANDLER_H
#define YV_RT_MESSAGING_YV_GEN_DYNAMICPROXY_REPLYHANDLER_H

#include "ReplyHandler.h"

namespace Messaging {

class YV_Gen_DynamicProxy_ReplyHandler : public virtual ReplyHandler {
public:
    explicit YV_Gen_DynamicProxy_ReplyHandler(CORBA::Object_ptr target) : CORBA::Object(target) {}

protected:
    ~YV_Gen_DynamicProxy_ReplyHandler() override;
};

} // namespace Messaging

#endif
