// The Messaging module, client side: the reply-handler base interface and
// the exception holder of the callback model.
#ifndef YV_RT_OMG_MESSAGING_HH
#define YV_RT_OMG_MESSAGING_HH

#include "../zantic_sys/Messaging/ExceptionHolder.h"
#include "../zantic_sys/Messaging/ReplyHandler.h"
#include "../zantic_sys/Messaging/YV_Gen_DynamicProxy_ReplyHandler.h"
#include "CORBA.hh"

#endif
