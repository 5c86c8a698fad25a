// The Messaging module, server side: the reply-handler skeleton.
#ifndef YV_RT_OMG_MESSAGINGS_HH
#define YV_RT_OMG_MESSAGINGS_HH

// The skeleton header generated for messaging.idl itself defines
// POA_Messaging::ReplyHandler, and it defines its include guard before it
// includes this header: then the runtime's own skeleton stands back.
#ifndef _YV_GUARD_messagingS_HH_
#include "../zantic_sys/POA_Messaging/ReplyHandler.h"
#endif
#include "../zantic_sys/yvcxx.h"
#include "Messaging.hh"
#include "PortableServer.hh"

#endif
