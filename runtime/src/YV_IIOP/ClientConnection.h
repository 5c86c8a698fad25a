// A connection this ORB opened to a server. Any number of threads share it:
// each call has its own request id. A call waiting for its reply reads the
// connection itself when no other call does, and hands the replies it
// reads to the calls they answer; the reactor watches the connection only
// for its end (a server that closes it while no call waits).
//
// How a call ends: with its reply; `retry` when the server closed the
// connection in order (CloseConnection) before answering, so the request
// was not served and may go again on a new connection; `broken` when the
// connection was lost after the request went out (the call may have taken
// place); `timed_out`.
#ifndef YV_IIOP_CLIENTCONNECTION_H
#define YV_IIOP_CLIENTCONNECTION_H

#include "YV_IIOP/Connection.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <utility>
#include <vector>
#include <mutex>

namespace YV_IIOP {

class ClientConnection : public Connection {
public:
    enum Result { replied, retry, broken, timed_out };

    ClientConnection(Reactor& reactor, Socket socket, std::size_t max_message,
                     std::function<void(ClientConnection*)> on_lost);

    CORBA::ULong next_request_id() { return m_next_id++; }
    // True once: the first request of the connection carries the code sets.
    bool first_request() { return !m_used.exchange(true); }

    // Sends a request and waits for its reply (a Reply or LocateReply).
    // `deadline` of time_point::max() waits as long as it takes.
    Result call(CORBA::ULong request_id, const unsigned char* message, std::size_t size, YV_GIOP::Message& reply,
                std::chrono::steady_clock::time_point deadline);
    // Sends a request that expects no reply: retry when the connection was
    // found closed before it went out.
    Result send_only(const unsigned char* message, std::size_t size);

    // Tells the server, then closes.
    void close_orderly();
    // Ends the calls still waiting (the transport stops without a reactor
    // to see the connection go).
    void abandon();

protected:
    void deliver(YV_GIOP::Message&& message, Reactor::Later& later) override;
    void lost() override;

private:
    struct Pending {
        bool done = false;
        Result result = broken;
        YV_GIOP::Message reply;
    };

    // Takes the call with that id off m_pending (m_mutex held); null when
    // it is not there.
    Pending* take_pending(CORBA::ULong request_id);

    std::function<void(ClientConnection*)> m_on_lost;
    std::atomic<CORBA::ULong> m_next_id{1};
    std::atomic<bool> m_used{false};
    std::mutex m_mutex;
    std::condition_variable m_answered;
    // The calls waiting for their replies (few: a short list, kept by the
    // calls on their stacks).
    std::vector<std::pair<CORBA::ULong, Pending*>> m_pending;
    // A call is reading the connection.
    bool m_reader = false;
    bool m_gone = false;
    bool m_orderly = false;
    YV_GIOP::Version m_version{1, 0};
};

} // namespace YV_IIOP

#endif
