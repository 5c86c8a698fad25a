#include "zantic_sys/Messaging/YV_Gen_DynamicProxy_ReplyHandler.h"

namespace Messaging {

YV_Gen_DynamicProxy_ReplyHandler::~YV_Gen_DynamicProxy_ReplyHandler() = default;

} // namespace Messaging
