#include "YV_ORB/Invocation.h"

#include "YV_ORB/AdmittedRequest.h"
#include "YV_GIOP/CdrText.h"
#include "YV_GIOP/IOR.h"
#include "YV_GIOP/RequestHeader.h"
#include "YV_GIOP/SpareBuffers.h"
#include "YV_GIOP/SystemExceptionCodec.h"
#include "YV_IIOP/Transport.h"
#include "YV_ORB/Adapter.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/Reference.h"
#include "YV_ORB/ReplyBuilder.h"
#include "YV_ORB/ServerDispatcher.h"
#include "YV_ORB/WireServerRequest.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/ServantBase.h"
#include "zantic_sys/YV_Runtime.h"

#include <algorithm>
#include <atomic>
#include <chrono>

namespace YV_ORB {

using namespace YV_GIOP;

namespace {

// Once the call is done with its reply, the reply's octets go to the
// thread's spares for the next one.
struct GiveBackOctets {
    Message& message;
    ~GiveBackOctets() { SpareBuffers::give_octets(std::move(message.octets)); }
};

// How many forwards one call follows before it gives up.
constexpr int max_forwards = 16;

// Takes the reply of a request served in this thread.
class CapturingSink : public ServerDispatcher::Sink {
public:
    void send(const unsigned char* message, std::size_t size) override { reply.assign(message, message + size); }
    bool remote() const override { return false; }
    std::vector<unsigned char> reply;
};

YV_Streamable& streamable_of(CORBA::NamedValue_ptr nv, CORBA::CompletionStatus completed)
{
    YV_Streamable* s = nv->value() ? nv->value()->yv_get_streamable() : nullptr;
    if (s == nullptr)
        throw CORBA::MARSHAL(0, completed);
    return *s;
}

CORBA::ULong next_loopback_id()
{
    static std::atomic<CORBA::ULong> id{0};
    return ++id;
}

} // namespace

bool Invocation::has_in_values(CORBA::NVList_ptr args)
{
    if (args == nullptr)
        return false;
    for (CORBA::ULong i = 0; i < args->count(); ++i)
        if ((args->item(i)->flags() & (CORBA::ARG_IN | CORBA::ARG_INOUT)) != 0)
            return true;
    return false;
}

void Invocation::write_arguments(YV_CDR::OutputStream& out, CORBA::NVList_ptr args)
{
    if (args == nullptr)
        return;
    for (CORBA::ULong i = 0; i < args->count(); ++i) {
        CORBA::NamedValue_ptr nv = args->item(i);
        if ((nv->flags() & (CORBA::ARG_IN | CORBA::ARG_INOUT)) != 0)
            streamable_of(nv, CORBA::COMPLETED_NO).yv_write(out);
    }
}

MessageBuilder Invocation::request(Version version, CORBA::ULong request_id, const TargetAddress& target,
                                   const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                                   const ServiceContextList& contexts)
{
    MessageBuilder b(version, Request);
    static const std::vector<CORBA::Octet> no_principal;
    RequestHeader::write(b.stream(), version, request_id,
                         op.oneway ? RequestHeader::sync_none : RequestHeader::sync_with_target, target, op.name,
                         contexts, no_principal);
    if (has_in_values(args)) {
        b.begin_body();
        write_arguments(b.stream(), args);
    }
    b.finish();
    return b;
}

Invocation::Outcome Invocation::read_reply(YV_CDR::InputStream& in, ReplyHeader::Status status,
                                           const YV_Cxx::Operation& op, CORBA::NVList_ptr args,
                                           YV_Streamable* result, std::shared_ptr<Reference>& forward_to,
                                           CORBA::Short& disposition)
{
    if (in.giop_minor() >= 2 && in.remaining() != 0)
        in.align(8);
    try {
        switch (status) {
        case ReplyHeader::NO_EXCEPTION:
            if (result != nullptr)
                result->yv_read(in);
            if (args != nullptr)
                for (CORBA::ULong i = 0; i < args->count(); ++i) {
                    CORBA::NamedValue_ptr nv = args->item(i);
                    if ((nv->flags() & (CORBA::ARG_OUT | CORBA::ARG_INOUT)) != 0)
                        streamable_of(nv, CORBA::COMPLETED_YES).yv_read(in);
                }
            return done;
        case ReplyHeader::USER_EXCEPTION: {
            const std::string id = read_text(in);
            for (CORBA::ULong i = 0; i < op.exception_count; ++i)
                if (id == op.exceptions[i].repository_id)
                    op.exceptions[i].read_and_raise(in);
            throw CORBA::UNKNOWN(0x4f4d0001, CORBA::COMPLETED_YES);
        }
        case ReplyHeader::SYSTEM_EXCEPTION:
            SystemExceptionCodec::read_and_raise(in);
        case ReplyHeader::LOCATION_FORWARD:
        case ReplyHeader::LOCATION_FORWARD_PERM:
            forward_to = Reference::from_ior(IOR::read(in));
            if (!forward_to)
                throw CORBA::INV_OBJREF(0, CORBA::COMPLETED_NO);
            return forward;
        case ReplyHeader::NEEDS_ADDRESSING_MODE:
            disposition = in.read_short();
            return readdress;
        }
    } catch (const CORBA::MARSHAL& e) {
        // The reply, not the request, was malformed: the call took place.
        if (status == ReplyHeader::NO_EXCEPTION || status == ReplyHeader::USER_EXCEPTION)
            throw CORBA::MARSHAL(e.minor(), CORBA::COMPLETED_YES);
        throw;
    }
    throw CORBA::MARSHAL(0, CORBA::COMPLETED_MAYBE);
}

void Invocation::invoke_local(PortableServer::POA* poa, const std::string& object_id, const YV_Cxx::Operation& op,
                              CORBA::NVList_ptr args, YV_Streamable* result)
{
    Adapter& adapter = poa->_yv_adapter();
    PortableServer::POAManager_ptr manager = adapter.manager();
    manager->_yv_admit_local();
    AdmittedRequest admitted(manager);
    Adapter::Serving serving(adapter, object_id);
    if (!op.oneway) {
        YV_Runtime::invoke(serving.servant(), op, args, result);
        return;
    }
    // A oneway call has no one to report to.
    try {
        YV_Runtime::invoke(serving.servant(), op, args, result);
    } catch (...) {
    }
}

Invocation::Outcome Invocation::invoke_loopback(const Reference& target, const YV_Cxx::Operation& op,
                                                CORBA::NVList_ptr args, YV_Streamable* result,
                                                std::shared_ptr<Reference>& forward_to)
{
    TargetAddress address;
    address.key_ref = &target.object_key();
    const Version version{1, 2};
    MessageBuilder request_message = Invocation::request(version, next_loopback_id(), address, op, args,
                                                         ServiceContextList());
    auto message = std::make_shared<Message>();
    message->octets.assign(request_message.data(), request_message.data() + request_message.size());
    message->header.parse(message->octets.data());
    auto sink = std::make_shared<CapturingSink>();
    ServerDispatcher::serve(message, sink);
    if (op.oneway)
        return done;
    Message reply;
    reply.octets = std::move(sink->reply);
    if (reply.octets.size() < MessageHeader::size || reply.header.parse(reply.octets.data()) != MessageHeader::ok
        || reply.header.type != Reply)
        throw CORBA::INTERNAL(0, CORBA::COMPLETED_MAYBE);
    YV_CDR::InputStream in = reply.body();
    const ReplyHeader header = ReplyHeader::read(in, reply.header.version);
    CORBA::Short disposition = 0;
    const Outcome outcome = read_reply(in, header.reply_status, op, args, result, forward_to, disposition);
    if (outcome == readdress)
        throw CORBA::INTERNAL(0, CORBA::COMPLETED_NO);
    return outcome;
}

void Invocation::invoke_encoded(PortableServer::ServantBase* servant, const YV_Cxx::Operation& op,
                                CORBA::NVList_ptr args, YV_Streamable* result)
{
    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher = servant->_lookup_dispatcher(op.name);
    if (dispatcher == nullptr)
        throw CORBA::BAD_OPERATION(0, CORBA::COMPLETED_NO);
    YV_CDR::OutputStream request(YV_CDR::native_little_endian);
    write_arguments(request, args);
    YV_CDR::InputStream in(request.data(), request.size(), request.little_endian());
    ReplyBuilder reply;
    CORBA::CompletionStatus status = CORBA::COMPLETED_NO;
    try {
        WireServerRequest served(op.name, in, op.oneway ? nullptr : &reply);
        dispatcher(servant, &served, status);
        if (!served.yv_responded())
            throw CORBA::INTERNAL(0, status);
    } catch (CORBA::SystemException& e) {
        // Raised after the upcall returned (sending the results): the call
        // was carried out whatever the exception says. Raised by the servant
        // (status MAYBE): its completion status stands.
        if (status == CORBA::COMPLETED_YES && e.completed() == CORBA::COMPLETED_NO)
            e.completed(status);
        reply.exception(e);
    } catch (const CORBA::Exception& e) {
        reply.exception(e);
    } catch (const std::bad_alloc&) {
        reply.exception(CORBA::NO_MEMORY(0, status));
    } catch (...) {
        reply.exception(CORBA::UNKNOWN(0, status));
    }
    if (op.oneway)
        return;
    const ReplyHeader::Status reply_status = reply.status();
    const std::vector<unsigned char> body = reply.take();
    YV_CDR::InputStream reply_in(body.data(), body.size(), YV_CDR::native_little_endian);
    std::shared_ptr<Reference> forward_to;
    CORBA::Short disposition = 0;
    read_reply(reply_in, reply_status, op, args, result, forward_to, disposition);
}

void Invocation::invoke(const std::shared_ptr<Reference>& reference, const YV_Cxx::Operation& op,
                        CORBA::NVList_ptr args, YV_Streamable* result, bool encoded)
{
    for (int hops = 0;; ++hops) {
        if (hops > max_forwards)
            throw CORBA::TRANSIENT(0, CORBA::COMPLETED_NO);
        std::shared_ptr<Reference> target = reference->target(reference);
        PortableServer::POA_var poa;
        std::string object_id;
        if (target->local(poa, object_id)) {
            if (poa.in() == nullptr)
                throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
            if (!encoded && YV_Runtime::dispatch_path() != YV_Runtime::wire) {
                invoke_local(poa.in(), object_id, op, args, result);
                return;
            }
            std::shared_ptr<Reference> forward_to;
            if (invoke_loopback(*target, op, args, result, forward_to) == done)
                return;
            reference->forward(forward_to);
            continue;
        }
        std::shared_ptr<Reference> forward_to;
        try {
            if (invoke_remote(*target, op, args, result, forward_to) == done)
                return;
        } catch (const CORBA::TRANSIENT& e) {
            // A forward that cannot be reached: back to the original.
            if (e.completed() == CORBA::COMPLETED_NO && target != reference && reference->drop_forward())
                continue;
            throw;
        } catch (const CORBA::COMM_FAILURE& e) {
            if (e.completed() == CORBA::COMPLETED_NO && target != reference && reference->drop_forward())
                continue;
            throw;
        } catch (const CORBA::OBJECT_NOT_EXIST&) {
            if (target != reference && reference->drop_forward())
                continue;
            throw;
        }
        reference->forward(forward_to);
    }
}

Invocation::Outcome Invocation::invoke_remote(const Reference& target, const YV_Cxx::Operation& op,
                                              CORBA::NVList_ptr args, YV_Streamable* result,
                                              std::shared_ptr<Reference>& forward_to)
{
    std::shared_ptr<YV_IIOP::Transport> transport = ORBCore::instance().transport();
    if (!transport)
        throw CORBA::BAD_INV_ORDER(0x4f4d0004, CORBA::COMPLETED_NO);
    const std::vector<IIOPProfile>& profiles = target.iiop_profiles();
    if (profiles.empty())
        throw CORBA::TRANSIENT(0x4f4d0002, CORBA::COMPLETED_NO);
    const auto call_timeout = ORBCore::instance().call_timeout();
    bool any_refused = false;
    for (std::size_t index = 0; index < profiles.size(); ++index) {
        const IIOPProfile& profile = profiles[index];
        const Version version{1, static_cast<CORBA::Octet>(profile.version.major > 1 ? 2 : std::min<int>(profile.version.minor, 2))};
        TargetAddress address;
        address.key_ref = &profile.object_key;
        // A server that closes in order before reading the request has not
        // served it: it goes again, on a new connection, a few times.
        for (int attempt = 0; attempt < 4; ++attempt) {
            bool refused = false;
            std::shared_ptr<YV_IIOP::ClientConnection> connection =
                transport->connect(profile.host, profile.port, refused);
            if (!connection) {
                any_refused = any_refused || refused;
                ORBCore::instance().trace(1, "cannot connect to " + profile.host + ":" + std::to_string(profile.port));
                break;
            }
            ServiceContextList contexts;
            if (connection->first_request() && version.minor >= 1) {
                CodeSets::Info offered;
                if (!profile.code_sets(offered))
                    offered.for_char.native_code_set = CodeSets::iso_8859_1;
                contexts.add(YV_GIOP::CodeSets, CodeSets::encode(CodeSets::negotiate(offered)));
            }
            const CORBA::ULong id = connection->next_request_id();
            const MessageBuilder message = request(version, id, address, op, args, contexts);
            if (message.size() > transport->options().max_message)
                throw CORBA::IMP_LIMIT(0, CORBA::COMPLETED_NO);
            if (op.oneway) {
                if (connection->send_only(message.data(), message.size()) == YV_IIOP::ClientConnection::replied)
                    return done;
                continue;
            }
            const auto deadline = call_timeout.count() == 0
                                      ? std::chrono::steady_clock::time_point::max()
                                      : std::chrono::steady_clock::now() + call_timeout;
            Message reply;
            const GiveBackOctets give_back{reply};
            switch (connection->call(id, message.data(), message.size(), reply, deadline)) {
            case YV_IIOP::ClientConnection::retry:
                continue;
            case YV_IIOP::ClientConnection::broken:
                throw CORBA::COMM_FAILURE(0, CORBA::COMPLETED_MAYBE);
            case YV_IIOP::ClientConnection::timed_out:
                throw CORBA::TIMEOUT(0, CORBA::COMPLETED_MAYBE);
            case YV_IIOP::ClientConnection::replied:
                break;
            }
            if (reply.header.type != Reply)
                throw CORBA::MARSHAL(0, CORBA::COMPLETED_MAYBE);
            YV_CDR::InputStream in = reply.body();
            ReplyHeader header;
            try {
                header = ReplyHeader::read(in, reply.header.version);
            } catch (const CORBA::MARSHAL& e) {
                throw CORBA::MARSHAL(e.minor(), CORBA::COMPLETED_MAYBE);
            }
            CORBA::Short disposition = 0;
            const Outcome outcome = read_reply(in, header.reply_status, op, args, result, forward_to, disposition);
            if (outcome != readdress)
                return outcome;
            // The server wants the target named another way.
            if (disposition == TargetAddress::ProfileAddr) {
                address.disposition = TargetAddress::ProfileAddr;
                address.profile = profile.encode();
            } else if (disposition == TargetAddress::ReferenceAddr) {
                address.disposition = TargetAddress::ReferenceAddr;
                address.ior = target.ior();
                address.selected_profile_index = 0;
                for (CORBA::ULong i = 0; i < address.ior.profiles.size(); ++i)
                    if (address.ior.profiles[i].tag == TAG_INTERNET_IOP) {
                        address.selected_profile_index = i;
                        break;
                    }
            } else {
                address.disposition = TargetAddress::KeyAddr;
            }
        }
    }
    throw CORBA::TRANSIENT(any_refused ? 0x4f4d0002 : 0, CORBA::COMPLETED_NO);
}

} // namespace YV_ORB
