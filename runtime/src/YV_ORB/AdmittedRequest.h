// Ends, when it goes, a request that a POA manager admitted.
#ifndef YV_ORB_ADMITTEDREQUEST_H
#define YV_ORB_ADMITTEDREQUEST_H

#include "zantic_sys/PortableServer/POAManager.h"

namespace YV_ORB {

class AdmittedRequest {
public:
    explicit AdmittedRequest(PortableServer::POAManager_ptr manager) : m_manager(manager) {}
    ~AdmittedRequest() { m_manager->_yv_end_request(); }
    AdmittedRequest(const AdmittedRequest&) = delete;
    AdmittedRequest& operator=(const AdmittedRequest&) = delete;

private:
    PortableServer::POAManager_ptr m_manager;
};

} // namespace YV_ORB

#endif
