// The server side of GIOP: serves a Request or LocateRequest message. The
// object key names a POA and an object id; the POA's manager admits the
// request (or holds it back to serve it later), the POA finds the servant,
// the servant's dispatch function serves a WireServerRequest over the
// message's body, and the reply goes to the sink. Exceptions become
// exception replies; a request header that cannot be read gets
// MessageError.
#ifndef YV_ORB_SERVERDISPATCHER_H
#define YV_ORB_SERVERDISPATCHER_H

#include "YV_GIOP/CodeSets.h"
#include "YV_GIOP/Message.h"

#include <memory>
#include <vector>

namespace YV_ORB {

class ServerDispatcher {
public:
    // Where the answers to the messages of one peer go.
    class Sink {
    public:
        virtual ~Sink() = default;
        // One whole message (the octets are the caller's).
        virtual void send(const unsigned char* message, std::size_t size) = 0;
        void send(const std::vector<unsigned char>& message) { send(message.data(), message.size()); }
        // The transmission code sets the peer chose (its first request says).
        virtual void code_sets(const YV_GIOP::CodeSets::Context& chosen) { static_cast<void>(chosen); }
        // True for a peer on the network: a holding POA manager queues its
        // requests. Calls from this process are never held.
        virtual bool remote() const = 0;
    };

    static void serve(std::shared_ptr<const YV_GIOP::Message> message, std::shared_ptr<Sink> sink);

private:
    static void serve_request(const std::shared_ptr<const YV_GIOP::Message>& message,
                              const std::shared_ptr<Sink>& sink);
    static void serve_locate(const YV_GIOP::Message& message, Sink& sink);
};

} // namespace YV_ORB

#endif
