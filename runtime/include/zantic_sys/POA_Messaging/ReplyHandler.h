// The skeleton of the reply-handler base interface; the skeletons of
// generated reply handlers derive from it.
#ifndef YV_RT_POA_MESSAGING_REPLYHANDLER_H
#define YV_RT_POA_MESSAGING_REPLYHANDLER_H

#include "../../omg/PortableServer.hh"
#include "../Messaging/ReplyHandler.h"

namespace POA_Messaging {

class ReplyHandler : public virtual PortableServer::ServantBase {
public:
    virtual ~ReplyHandler();

    PortableServer::ServantBase::_YV_DispatcherPtr _lookup_dispatcher(const char* operation) override;
    Messaging::ReplyHandler_ptr _this();
    CORBA::Boolean _yv_is_a(const YV_FWString& _id) override;
    CORBA::RepositoryId _primary_interface(const PortableServer::ObjectId& oid,
                                           PortableServer::POA_ptr poa) override;

    void* _local_narrow(const char* tag) override;
    static char _narrow_tag;
    static ReplyHandler* _narrow(PortableServer::ServantBase* _servant);
};

} // namespace POA_Messaging

#endif
