#include "zantic_sys/CORBA/ORB.h"

#include "zantic_sys/PortableServer/POA.h"

#include <cstring>

namespace CORBA {

ORB_ptr ORB::_yv_instance()
{
    static ORB orb;
    return &orb;
}

Object_ptr ORB::resolve_initial_references(const char* identifier)
{
    if (identifier != nullptr && std::strcmp(identifier, "RootPOA") == 0)
        return PortableServer::POA::_duplicate(PortableServer::POA::_yv_root());
    throw InvalidName();
}

void ORB::run() {}

void ORB::shutdown(Boolean)
{
    m_shut_down = true;
}

void ORB::destroy()
{
    m_shut_down = true;
}

Boolean ORB::work_pending()
{
    return false;
}

void ORB::perform_work() {}

ORB_ptr ORB_init(int&, char**, const char*)
{
    return ORB::_yv_instance();
}

} // namespace CORBA
