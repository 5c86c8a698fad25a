// The client's check list against a Probe server: every operation with the
// shared samples, every result, inout and out value and every exception.
#ifndef INTEROP_PROBE_CHECKS_H
#define INTEROP_PROBE_CHECKS_H

#include "CallbackServant.h"
#include "CheckReport.h"
#include "InteropOrb.h"

#include <string>

namespace interop {

class ProbeChecks {
public:
    // The callback servants are the client's, active in `poa`; the ORB
    // serves them while the checks run.
    ProbeChecks(CORBA::ORB_ptr orb, PortableServer::POA_ptr poa, Interop::Probe_ptr probe,
                CallbackServant& first, CallbackServant& second, CheckReport& report);

    void run();

private:
    void values();
    void anys();
    void references();
    void lifecycle();
    void attributes();
    void exceptions();
    void oneways();
    void concurrency();

    // Calls `call(a, b, c, r)` for a = s[i], b = s[i+1] of every sample
    // index i and checks r = s[i+2], b = s[i], c = s[i+1].
    template <class K, class Call>
    void rotation(const std::string& operation, Call call);

    Interop::Callback_ptr callback(CallbackServant& servant);

    CORBA::ORB_var m_orb;
    PortableServer::POA_var m_poa;
    Interop::Probe_var m_probe;
    CallbackServant& m_first;
    CallbackServant& m_second;
    CheckReport& m_report;
    // What the server's version attribute says: which ORB serves.
    std::string m_peer;
};

} // namespace interop

#endif
