#include "zantic_sys/CORBA/YV_ServerRequest.h"

#include "zantic_sys/CORBA/ORB.h"
#include "zantic_sys/CORBA/SystemException.h"

namespace CORBA {

YV_ServerRequest::~YV_ServerRequest() = default;

YV_ORB_ptr YV_ServerRequest::yv_get_orb()
{
    return ORB::_yv_instance();
}

void YV_ServerRequest::yv_mark_responded()
{
    if (m_responded)
        throw BAD_INV_ORDER(0, COMPLETED_YES);
    m_responded = true;
}

} // namespace CORBA
