#include "zantic_sys/Messaging/ReplyHandler.h"

#include "zantic_sys/Messaging/YV_Gen_DynamicProxy_ReplyHandler.h"
#include "zantic_sys/YV_Cxx/narrow_reference.h"

namespace Messaging {

const YV_FWString ReplyHandler::_yv_fw_type_id("IDL:omg.org/Messaging/ReplyHandler:1.0");

ReplyHandler::~ReplyHandler() = default;

ReplyHandler_ptr ReplyHandler::_duplicate(ReplyHandler_ptr p)
{
    if (p != nullptr)
        p->_yv_add_ref();
    return p;
}

ReplyHandler_ptr ReplyHandler::_narrow(CORBA::Object_ptr obj)
{
    return YV_Cxx::narrow_reference<ReplyHandler, YV_Gen_DynamicProxy_ReplyHandler>(obj);
}

} // namespace Messaging
