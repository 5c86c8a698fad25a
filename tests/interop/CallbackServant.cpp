#include "CallbackServant.h"

namespace interop {

CORBA::Long CallbackServant::ping(CORBA::Long value)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    ++m_pings;
    return value * 2 + 1;
}

void CallbackServant::notify(const char* event)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_events.push_back(event);
}

CORBA::ULong CallbackServant::pings()
{
    return ping_count();
}

Interop::StringSeq* CallbackServant::events()
{
    const std::vector<std::string> events = event_list();
    Interop::StringSeq_var result = new Interop::StringSeq;
    result->length(static_cast<CORBA::ULong>(events.size()));
    for (std::size_t i = 0; i < events.size(); ++i)
        result[static_cast<CORBA::ULong>(i)] = events[i].c_str();
    return result._retn();
}

CORBA::ULong CallbackServant::ping_count()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_pings;
}

std::vector<std::string> CallbackServant::event_list()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_events;
}

} // namespace interop
