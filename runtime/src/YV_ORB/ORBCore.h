// The state the ORB keeps for the whole process: its options, the nonce
// that makes transient object keys unique to this run, the POAs by number,
// the root POA, the transport with the endpoints written into references,
// the initial references, and the shutdown state.
#ifndef YV_ORB_ORBCORE_H
#define YV_ORB_ORBCORE_H

#include "YV_GIOP/IOR.h"
#include "YV_IIOP/Transport.h"
#include "YV_ORB/ORBOptions.h"
#include "YV_ORB/ObjectKey.h"
#include "zantic_sys/PortableServer/POA.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace YV_ORB {

class Adapter;

class ORBCore {
public:
    // The one core of the process (never destroyed: threads of the
    // transport may use it until the process ends).
    static ORBCore& instance();

    // ORB_init: takes the options (once per life of the ORB) and listens on
    // the endpoints they name.
    void initialize(const ORBOptions& options);
    ORBOptions options() const;
    // How long a call waits for its reply (0: as long as it takes).
    std::chrono::milliseconds call_timeout() const;

    const ObjectKey::Nonce& nonce() const { return m_nonce; }

    // The root POA (made at first use).
    PortableServer::POA_ptr root_poa();

    // Transient POAs are found by number.
    CORBA::ULong register_adapter(Adapter* adapter);
    void unregister_adapter(CORBA::ULong number);
    // The POA that made `key` (a new reference), or nil.
    PortableServer::POA_ptr find_adapter(const ObjectKey& key);

    // The transport (started at first use); null once the ORB is shut down.
    std::shared_ptr<YV_IIOP::Transport> transport();
    // Runs `work` on a thread of the ORB (in this thread when there is
    // none).
    void run_later(std::function<void()> work);

    // The profiles of a reference to an object of this process with `key`:
    // one IIOP 1.2 profile naming this ORB's endpoints (listening first, on
    // every interface with a port the system chooses, if the ORB does not
    // listen yet).
    std::vector<YV_GIOP::TaggedProfile> profiles_for(const std::vector<CORBA::Octet>& key);
    // True when `host`:`port` is one of this ORB's endpoints (always false
    // with -ORBColocated no).
    bool is_local_endpoint(const std::string& host, CORBA::UShort port);
    // Changes whenever the answers of is_local_endpoint may change, so that
    // a reference may keep its answer meanwhile.
    std::uint64_t endpoints_version() const { return m_endpoints_version.load(std::memory_order_acquire); }

    // Initial references by name: registered objects first, then the
    // -ORBInitRef URLs, then -ORBDefaultInitRef. Null when unknown.
    void register_initial_reference(const std::string& name, CORBA::Object_ptr obj);
    CORBA::Object_ptr registered_reference(const std::string& name);
    std::vector<std::string> initial_reference_names();

    // Shutdown: `shutdown` marks the ORB shut down and wakes run();
    // `complete` destroys the POAs and stops the transport (wait: for the
    // requests being served). `reset` makes the core ready for a new ORB.
    void shutdown();
    bool is_shut_down();
    // Waits until the ORB is shut down.
    void wait_for_shutdown();
    void complete_shutdown(bool wait_for_completion);
    void reset();

    // Writes `line` to the standard error stream when the trace level is at
    // least `level`.
    void trace(int level, const std::string& line);
    int trace_level() const { return m_trace_level; }

private:
    ORBCore();
    void listen(const YV_IIOP::Endpoint& where);

    ObjectKey::Nonce m_nonce{};
    std::mutex m_root_mutex;
    PortableServer::POA_var m_root;

    mutable std::mutex m_mutex;
    std::atomic<std::uint64_t> m_endpoints_version{0};
    // m_options.call_timeout, read on every call without the lock.
    std::atomic<std::chrono::milliseconds::rep> m_call_timeout{0};
    std::condition_variable m_shutdown_cv;
    ORBOptions m_options;
    bool m_initialized = false;
    bool m_shut_down = false;
    bool m_completed = false;
    int m_trace_level = 0;
    CORBA::ULong m_next_number = 0;
    std::map<CORBA::ULong, Adapter*> m_adapters;
    std::shared_ptr<YV_IIOP::Transport> m_transport;
    // Where the ORB listens, and the host:port pairs references name.
    std::vector<YV_IIOP::Endpoint> m_bound;
    std::vector<YV_IIOP::Endpoint> m_published;
    std::map<std::string, CORBA::Object_var> m_registered;
};

} // namespace YV_ORB

#endif
