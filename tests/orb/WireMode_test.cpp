// Calls served in process on every dispatch path, the wire path included:
// there a call on a reference becomes a GIOP request that the server side
// serves as if it came from the network, and the reply is read back. The
// server dispatcher is also fed messages directly, well-formed and not.
#include "TestData.h"
#include "TestServants.h"

#include "YV_GIOP/CdrText.h"
#include "YV_GIOP/LocateReplyHeader.h"
#include "YV_GIOP/LocateRequestHeader.h"
#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"
#include "YV_GIOP/RequestHeader.h"
#include "YV_ORB/Reference.h"
#include "YV_ORB/ServerDispatcher.h"

#include <omg/PortableServer.hh>
#include <zantic_sys/YV_Cxx/Operation.h>
#include <zantic_sys/nmval.h>
#include <zantic_sys/yvcxx.h>

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace {

using namespace YV_GIOP;
using namespace orbtest;

class DispatchPaths : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(GetParam());
        poa = PortableServer::POA::_duplicate(PortableServer::POA::_yv_root());
        id = poa->activate_object(&servant);
        ref = poa->id_to_reference(id.in());
    }
    void TearDown() override
    {
        ref = CORBA::Object::_nil();
        poa->deactivate_object(id.in());
        YV_Runtime::set_dispatch_path(YV_Runtime::colocated);
    }

    Adder servant;
    PortableServer::POA_var poa;
    PortableServer::ObjectId_var id;
    CORBA::Object_var ref;
};

TEST_P(DispatchPaths, ValuesTravelInEveryDirection)
{
    const AddResult got = call_add(ref.in(), 6, 4);
    EXPECT_EQ(got.r, 24);
    EXPECT_EQ(got.b, 10);
    EXPECT_EQ(got.c, 2);
    // The servant itself, without a reference.
    CORBA::Long a = 2, b = 3, c = 0, r = 0;
    WireLong sa(&a), sb(&b), sc(&c), sr(&r);
    YV_Cxx::CallArguments args;
    args.in(sa).inout(sb).out(sc);
    YV_Runtime::invoke(&servant, add_op, &args, &sr);
    EXPECT_EQ(r, 6);
    EXPECT_EQ(b, 5);
}

TEST_P(DispatchPaths, ExceptionsReachTheCaller)
{
    try {
        call_add(ref.in(), 13, 42);
        ADD_FAILURE() << "no exception";
    } catch (const Oops& e) {
        EXPECT_EQ(e.code, 42);
    }
    try {
        call_add(ref.in(), 14, 1);
        ADD_FAILURE() << "no exception";
    } catch (const CORBA::NO_PERMISSION& e) {
        EXPECT_EQ(e.minor(), 7u);
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_YES);
    }
    try {
        call_add(ref.in(), 15, 1);
        ADD_FAILURE() << "no exception";
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
    // In process the caller catches the servant's own exception; through
    // the wire an exception the operation does not list is UNKNOWN.
    if (GetParam() == YV_Runtime::wire) {
        EXPECT_THROW(call_add(ref.in(), 13, 1, add_op_unlisted), CORBA::UNKNOWN);
    }
    const YV_Cxx::Operation missing = {"missing", false, nullptr, 0};
    EXPECT_THROW(ref->_yv_invoke(missing, nullptr, nullptr), CORBA::BAD_OPERATION);
}

TEST_P(DispatchPaths, OnewayCallsAreServed)
{
    CORBA::Long a = 99;
    WireLong sa(&a);
    YV_Cxx::CallArguments args;
    args.in(sa);
    ref->_yv_invoke(note_op, &args, nullptr);
    EXPECT_EQ(servant.noted, 99);
}

TEST_P(DispatchPaths, DeactivatedObjectsAreGone)
{
    Adder* other_servant = new Adder;
    PortableServer::ObjectId_var other_id = poa->activate_object(other_servant);
    other_servant->_remove_ref();  // the POA's reference is the last
    CORBA::Object_var other = poa->id_to_reference(other_id.in());
    poa->deactivate_object(other_id.in());
    EXPECT_THROW(call_add(other.in(), 1, 1), CORBA::OBJECT_NOT_EXIST);
}

INSTANTIATE_TEST_SUITE_P(Paths, DispatchPaths,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based, YV_Runtime::wire),
                         [](const ::testing::TestParamInfo<YV_Runtime::DispatchPath>& info) {
                             return info.param == YV_Runtime::colocated       ? std::string("Colocated")
                                    : info.param == YV_Runtime::request_based ? std::string("RequestBased")
                                                                              : std::string("Wire");
                         });

// Takes what the dispatcher sends, as a peer on the network would.
class Peer : public YV_ORB::ServerDispatcher::Sink {
public:
    void send(const unsigned char* message, std::size_t size) override { sent.emplace_back(message, message + size); }
    bool remote() const override { return true; }
    void code_sets(const CodeSets::Context& chosen) override { chars = chosen.char_data; }
    std::vector<std::vector<unsigned char>> sent;
    CORBA::ULong chars = 0;
};

class ServerDispatcherTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        CORBA::PolicyList none;
        poa = PortableServer::POA::_yv_root()->create_POA("dispatcher", PortableServer::POAManager::_nil(), none);
        manager = poa->the_POAManager();
        manager->activate();
        id = poa->activate_object(&servant);
        ref = poa->id_to_reference(id.in());
        key = ref->_yv_reference()->object_key();
    }
    void TearDown() override { poa->destroy(false, false); }

    // Serves a request for `operation` on `target` with `body` (longs) and
    // answers what the peer got.
    std::shared_ptr<Peer> serve(Version v, const std::vector<CORBA::Octet>& target, const char* operation,
                                std::vector<CORBA::Long> body, bool response = true, std::size_t cut = 0)
    {
        MessageBuilder b(v, Request);
        RequestHeader h;
        h.request_id = 77;
        h.response_flags = response ? RequestHeader::sync_with_target : RequestHeader::sync_none;
        h.target.object_key = target;
        h.operation = operation;
        h.service_contexts.add(CodeSets, CodeSets::encode(CodeSets::Context{CodeSets::utf_8, CodeSets::utf_16}));
        h.write(b.stream(), v);
        if (!body.empty())
            b.begin_body();
        for (CORBA::Long l : body)
            b.stream().write_long(l);
        b.finish();
        auto m = std::make_shared<Message>();
        m->octets.assign(b.data(), b.data() + b.size() - cut);
        m->header.parse(m->octets.data());
        auto peer = std::make_shared<Peer>();
        YV_ORB::ServerDispatcher::serve(m, peer);
        return peer;
    }

    // The reply's status, with a decoder at its body.
    static ReplyHeader::Status reply_of(const std::vector<unsigned char>& octets, Message& m, YV_CDR::InputStream*& in)
    {
        m.octets = octets;
        EXPECT_EQ(m.header.parse(m.octets.data()), MessageHeader::ok);
        EXPECT_EQ(m.header.type, Reply);
        static thread_local YV_CDR::InputStream body(nullptr, 0, false);
        body = m.body();
        const ReplyHeader h = ReplyHeader::read(body, m.header.version);
        EXPECT_EQ(h.request_id, 77u);
        if (body.remaining() != 0 && m.header.version.minor >= 2)
            body.align(8);
        in = &body;
        return h.reply_status;
    }

    Adder servant;
    PortableServer::POA_var poa;
    PortableServer::POAManager_var manager;
    PortableServer::ObjectId_var id;
    CORBA::Object_var ref;
    std::vector<CORBA::Octet> key;
};

TEST_F(ServerDispatcherTest, AnswersRequestsOfEveryVersion)
{
    for (CORBA::Octet minor : {0, 1, 2}) {
        SCOPED_TRACE(static_cast<int>(minor));
        auto peer = serve(Version{1, minor}, key, "add", {3, 4});
        ASSERT_EQ(peer->sent.size(), 1u);
        EXPECT_EQ(peer->chars, CodeSets::utf_8);
        Message m;
        YV_CDR::InputStream* in = nullptr;
        ASSERT_EQ(reply_of(peer->sent[0], m, in), ReplyHeader::NO_EXCEPTION);
        EXPECT_EQ(m.header.version.minor, minor);
        EXPECT_EQ(in->read_long(), 12);
        EXPECT_EQ(in->read_long(), 7);
        EXPECT_EQ(in->read_long(), -1);
        EXPECT_EQ(in->remaining(), 0u);
    }
}

// What goes wrong gets the GIOP answer: the system exception with its
// minor code and completion status, or MessageError for a header that
// cannot be read; oneway requests get nothing.
TEST_F(ServerDispatcherTest, AnswersWhatGoesWrong)
{
    struct Case {
        const char* what;
        std::vector<CORBA::Octet> target;
        const char* operation;
        std::vector<CORBA::Long> body;
        std::size_t cut;
        const char* exception;  // repository id; nullptr: a MessageError
        CORBA::CompletionStatus completed;
    };
    const std::vector<CORBA::Octet> foreign = {'E', 'c', 'h', 'o'};
    std::vector<CORBA::Octet> stale = key;
    stale[5] ^= 0xff;  // another run's nonce
    const Case cases[] = {
        {"unknown key", foreign, "add", {1, 2}, 0, "IDL:omg.org/CORBA/OBJECT_NOT_EXIST:1.0", CORBA::COMPLETED_NO},
        {"key of another run", stale, "add", {1, 2}, 0, "IDL:omg.org/CORBA/OBJECT_NOT_EXIST:1.0", CORBA::COMPLETED_NO},
        {"unknown operation", key, "subtract", {1, 2}, 0, "IDL:omg.org/CORBA/BAD_OPERATION:1.0", CORBA::COMPLETED_NO},
        {"arguments cut short", key, "add", {1}, 0, "IDL:omg.org/CORBA/MARSHAL:1.0", CORBA::COMPLETED_NO},
        {"no arguments", key, "add", {}, 0, "IDL:omg.org/CORBA/MARSHAL:1.0", CORBA::COMPLETED_NO},
        {"servant's exception", key, "add", {14, 1}, 0, "IDL:omg.org/CORBA/NO_PERMISSION:1.0", CORBA::COMPLETED_YES},
        {"non-CORBA exception", key, "add", {15, 1}, 0, "IDL:omg.org/CORBA/UNKNOWN:1.0", CORBA::COMPLETED_MAYBE},
        {"header cut short", key, "add", {}, 10, nullptr, CORBA::COMPLETED_NO},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto peer = serve(Version{1, 2}, c.target, c.operation, c.body, true, c.cut);
        ASSERT_EQ(peer->sent.size(), 1u);
        Message m;
        m.octets = peer->sent[0];
        ASSERT_EQ(m.header.parse(m.octets.data()), MessageHeader::ok);
        if (c.exception == nullptr) {
            EXPECT_EQ(m.header.type, MessageError);
            continue;
        }
        YV_CDR::InputStream* in = nullptr;
        ASSERT_EQ(reply_of(peer->sent[0], m, in), ReplyHeader::SYSTEM_EXCEPTION);
        EXPECT_EQ(read_text(*in), c.exception);
        in->read_ulong();
        EXPECT_EQ(in->read_ulong(), static_cast<CORBA::ULong>(c.completed));
    }
    // A user exception, as its class writes it.
    auto peer = serve(Version{1, 2}, key, "add", {13, 5});
    Message m;
    YV_CDR::InputStream* in = nullptr;
    ASSERT_EQ(reply_of(peer->sent.at(0), m, in), ReplyHeader::USER_EXCEPTION);
    EXPECT_EQ(read_text(*in), "IDL:Test/Oops:1.0");
    EXPECT_EQ(in->read_long(), 5);
    // Oneway: served, no answer, even for an unknown key.
    EXPECT_TRUE(serve(Version{1, 2}, key, "note", {5}, false)->sent.empty());
    EXPECT_EQ(servant.noted, 5);
    EXPECT_TRUE(serve(Version{1, 2}, foreign, "note", {6}, false)->sent.empty());
    // _non_existent of an object that is gone answers true.
    poa->deactivate_object(id.in());
    peer = serve(Version{1, 1}, key, "_non_existent", {});
    ASSERT_EQ(reply_of(peer->sent.at(0), m, in), ReplyHeader::NO_EXCEPTION);
    EXPECT_TRUE(in->read_boolean());
    id = poa->activate_object(&servant);
}

// A holding manager keeps requests from the network and serves them once
// it becomes active; discarding refuses them with TRANSIENT.
TEST_F(ServerDispatcherTest, HoldingManagersQueueRequests)
{
    manager->hold_requests(false);
    auto peer = serve(Version{1, 2}, key, "add", {2, 2});
    EXPECT_TRUE(peer->sent.empty());
    manager->activate();
    ASSERT_EQ(peer->sent.size(), 1u);
    Message m;
    YV_CDR::InputStream* in = nullptr;
    EXPECT_EQ(reply_of(peer->sent[0], m, in), ReplyHeader::NO_EXCEPTION);

    manager->hold_requests(false);
    peer = serve(Version{1, 2}, key, "add", {2, 2});
    manager->discard_requests(false);
    ASSERT_EQ(peer->sent.size(), 1u);
    ASSERT_EQ(reply_of(peer->sent[0], m, in), ReplyHeader::SYSTEM_EXCEPTION);
    EXPECT_EQ(read_text(*in), "IDL:omg.org/CORBA/TRANSIENT:1.0");
    manager->activate();
}

TEST_F(ServerDispatcherTest, LocatesObjects)
{
    for (CORBA::Octet minor : {0, 1, 2}) {
        for (bool known : {true, false}) {
            MessageBuilder b(Version{1, minor}, LocateRequest);
            LocateRequestHeader h;
            h.request_id = 9;
            h.target.object_key = known ? key : std::vector<CORBA::Octet>{'x'};
            h.write(b.stream(), Version{1, minor});
            b.finish();
            auto m = std::make_shared<Message>();
            m->octets.assign(b.data(), b.data() + b.size());
            m->header.parse(m->octets.data());
            auto peer = std::make_shared<Peer>();
            YV_ORB::ServerDispatcher::serve(m, peer);
            ASSERT_EQ(peer->sent.size(), 1u);
            Message r;
            r.octets = peer->sent[0];
            r.header.parse(r.octets.data());
            EXPECT_EQ(r.header.type, LocateReply);
            YV_CDR::InputStream in = r.body();
            const LocateReplyHeader reply = LocateReplyHeader::read(in, r.header.version);
            EXPECT_EQ(reply.request_id, 9u);
            EXPECT_EQ(reply.locate_status, known ? LocateReplyHeader::OBJECT_HERE : LocateReplyHeader::UNKNOWN_OBJECT);
        }
    }
}

} // namespace
