#include "YV_ORB/ServerDispatcher.h"

#include "YV_ORB/AdmittedRequest.h"
#include "YV_GIOP/LocateReplyHeader.h"
#include "YV_GIOP/LocateRequestHeader.h"
#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/RequestHeader.h"
#include "YV_ORB/Adapter.h"
#include "YV_ORB/ObjectKey.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/ReplyBuilder.h"
#include "YV_ORB/WireServerRequest.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/PortableServer/ServantBase.h"

#include <new>

namespace YV_ORB {

using namespace YV_GIOP;

namespace {

// The POA that the key names, or nil.
PortableServer::POA_ptr adapter_of(const std::vector<CORBA::Octet>& key, std::string& object_id)
{
    ObjectKey parsed;
    if (!ObjectKey::parse(key.data(), key.size(), parsed))
        return nullptr;
    object_id = parsed.object_id;
    return ORBCore::instance().find_adapter(parsed);
}

// The POA of a request's target (its key read in place when the request
// names it by key).
PortableServer::POA_ptr adapter_of(const TargetAddress& target, std::string& object_id)
{
    if (target.disposition == TargetAddress::KeyAddr)
        return adapter_of(target.object_key, object_id);
    return adapter_of(target.key(), object_id);
}

bool is_non_existent(const std::string& operation)
{
    return operation == "_non_existent" || operation == "_not_existent";
}

} // namespace

void ServerDispatcher::serve(std::shared_ptr<const Message> message, std::shared_ptr<Sink> sink)
{
    switch (message->header.type) {
    case Request:
        serve_request(message, sink);
        break;
    case LocateRequest:
        serve_locate(*message, *sink);
        break;
    default:
        break;
    }
}

void ServerDispatcher::serve_request(const std::shared_ptr<const Message>& message, const std::shared_ptr<Sink>& sink)
{
    const Version version = message->header.version;
    YV_CDR::InputStream in = message->body();
    RequestHeader header;
    try {
        header = RequestHeader::read(in, version);
    } catch (const CORBA::Exception&) {
        sink->send(MessageBuilder::header_only(version, MessageError));
        return;
    }
    if (const ServiceContext* c = header.service_contexts.find(CodeSets)) {
        try {
            sink->code_sets(CodeSets::decode_context(c->context_data.data(), c->context_data.size()));
        } catch (const CORBA::MARSHAL&) {
            // A malformed choice: the defaults stay.
        }
    }

    const bool reply_expected = header.response_expected();
    ReplyBuilder reply(version, header.request_id);
    CORBA::CompletionStatus status = CORBA::COMPLETED_NO;
    try {
        std::string object_id;
        PortableServer::POA_var poa = adapter_of(header.target, object_id);
        if (poa.in() == nullptr)
            throw CORBA::OBJECT_NOT_EXIST(0, CORBA::COMPLETED_NO);
        Adapter& adapter = poa->_yv_adapter();
        PortableServer::POAManager_ptr manager = adapter.manager();
        if (sink->remote()) {
            // Made only when the request is held back.
            const auto retry = [&message, &sink]() -> std::function<void()> {
                std::shared_ptr<const Message> kept = message;
                std::shared_ptr<Sink> kept_sink = sink;
                return [kept, kept_sink] { serve(kept, kept_sink); };
            };
            if (manager->_yv_admit(retry) == PortableServer::POAManager::queued)
                return;
        } else {
            manager->_yv_admit_local();
        }
        AdmittedRequest admitted(manager);
        Adapter::Serving serving(adapter, object_id);
        const std::string operation = is_non_existent(header.operation) ? "_non_existent" : header.operation;
        PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =
            serving.servant()->_lookup_dispatcher(operation.c_str());
        if (dispatcher == nullptr)
            throw CORBA::BAD_OPERATION(0, CORBA::COMPLETED_NO);
        if (version.minor >= 2 && in.remaining() != 0)
            in.align(8);
        WireServerRequest request(operation, in, reply_expected ? &reply : nullptr);
        dispatcher(serving.servant(), &request, status);
        if (!request.yv_responded())
            throw CORBA::INTERNAL(0, status);
    } catch (CORBA::SystemException& e) {
        if (is_non_existent(header.operation) && dynamic_cast<CORBA::OBJECT_NOT_EXIST*>(&e) != nullptr) {
            reply.begin(ReplyHeader::NO_EXCEPTION, true).write_boolean(true);
        } else {
            // Raised after the upcall returned (sending the results): the call
            // was carried out whatever the exception says. Raised by the servant
            // (status MAYBE): its completion status stands.
            if (status == CORBA::COMPLETED_YES && e.completed() == CORBA::COMPLETED_NO)
                e.completed(status);
            reply.exception(e);
        }
    } catch (const CORBA::Exception& e) {
        reply.exception(e);
    } catch (const std::bad_alloc&) {
        reply.exception(CORBA::NO_MEMORY(0, status));
    } catch (...) {
        reply.exception(CORBA::UNKNOWN(0, status));
    }
    if (reply_expected) {
        reply.finish();
        sink->send(reply.data(), reply.size());
    }
}

void ServerDispatcher::serve_locate(const Message& message, Sink& sink)
{
    const Version version = message.header.version;
    YV_CDR::InputStream in = message.body();
    LocateRequestHeader header;
    try {
        header = LocateRequestHeader::read(in, version);
    } catch (const CORBA::Exception&) {
        sink.send(MessageBuilder::header_only(version, MessageError));
        return;
    }
    LocateReplyHeader answer;
    answer.request_id = header.request_id;
    answer.locate_status = LocateReplyHeader::UNKNOWN_OBJECT;
    try {
        std::string object_id;
        PortableServer::POA_var poa = adapter_of(header.target, object_id);
        if (poa.in() != nullptr && poa->_yv_adapter().find_servant(object_id) != nullptr)
            answer.locate_status = LocateReplyHeader::OBJECT_HERE;
    } catch (const CORBA::Exception&) {
        // A target address without a usable key: not here.
    }
    MessageBuilder b(version, LocateReply);
    answer.write(b.stream());
    b.finish();
    sink.send(b.data(), b.size());
}

} // namespace YV_ORB
