// The Messaging module, server side: the reply-handler skeleton.
#ifndef YV_RT_OMG_MESSAGINGS_HH
#define YV_RT_OMG_MESSAGINGS_HH

#include "../zantic_sys/POA_Messaging/ReplyHandler.h"
#include "../zantic_sys/yvcxx.h"
#include "Messaging.hh"
#include "PortableServer.hh"

#endif
