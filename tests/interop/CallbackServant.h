// The client's object that servers call back: counts pings and records the
// events notified to it.
#ifndef INTEROP_CALLBACK_SERVANT_H
#define INTEROP_CALLBACK_SERVANT_H

#include "InteropOrb.h"

#include <mutex>
#include <string>
#include <vector>

namespace interop {

class CallbackServant : public virtual POA_Interop::Callback {
public:
    // Answers value * 2 + 1.
    CORBA::Long ping(CORBA::Long value) override;
    void notify(const char* event) override;
    CORBA::ULong pings() override;
    Interop::StringSeq* events() override;

    // What the servant saw, read locally.
    CORBA::ULong ping_count();
    std::vector<std::string> event_list();

private:
    std::mutex m_mutex;
    CORBA::ULong m_pings = 0;
    std::vector<std::string> m_events;
};

} // namespace interop

#endif
