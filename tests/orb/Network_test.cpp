// The ORB over TCP in one process: the server side listens on 127.0.0.1,
// and with -ORBColocated no the references read from strings go through
// its endpoint like anyone else's. Raw sockets play misbehaving clients and
// servers.
#include "RawPeer.h"
#include "TestServants.h"

#include "YV_GIOP/CdrText.h"
#include "YV_GIOP/IIOPProfile.h"
#include "YV_GIOP/IOR.h"
#include "YV_GIOP/LocateReplyHeader.h"
#include "YV_GIOP/LocateRequestHeader.h"
#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"
#include "YV_GIOP/RequestHeader.h"
#include "YV_ORB/Adapter.h"
#include "YV_ORB/ORBCore.h"
#include "YV_ORB/Reference.h"
#include "YV_ORB/ReplyBuilder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <iterator>
#include <thread>

namespace {

using namespace YV_GIOP;
using namespace orbtest;

const std::size_t max_message = 64 * 1024;

std::vector<unsigned char> request_bytes(Version v, CORBA::ULong id, const std::vector<CORBA::Octet>& key,
                                         const char* operation, std::vector<CORBA::Long> body,
                                         bool little_endian = true, bool response = true)
{
    MessageBuilder b(v, Request, little_endian);
    RequestHeader h;
    h.request_id = id;
    h.response_flags = response ? RequestHeader::sync_with_target : RequestHeader::sync_none;
    h.target.object_key = key;
    h.operation = operation;
    h.write(b.stream(), v);
    if (!body.empty())
        b.begin_body();
    for (CORBA::Long l : body)
        b.stream().write_long(l);
    b.finish();
    return std::vector<unsigned char>(b.data(), b.data() + b.size());
}

// The reply's status; `in` is positioned at its body.
ReplyHeader::Status status_of(const Message& m, CORBA::ULong& id, YV_CDR::InputStream& in)
{
    in = m.body();
    const ReplyHeader h = ReplyHeader::read(in, m.header.version);
    id = h.request_id;
    if (in.remaining() != 0 && m.header.version.minor >= 2)
        in.align(8);
    return h.reply_status;
}

class Network : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        const char* args[] = {"orb_tests", "-ORBListenEndpoints", "iiop://127.0.0.1:0", "-ORBColocated", "no",
                              "-ORBGIOPMaxMsgSize", "65536", "-ORBInitRef", "Thing=corbaloc::127.0.0.1:1/x",
                              "-ORBUnknownOption", "ignored", "kept", nullptr};
        std::vector<char*> argv;
        for (const char* a : args)
            argv.push_back(const_cast<char*>(a));
        int argc = static_cast<int>(argv.size()) - 1;
        orb = CORBA::ORB_init(argc, argv.data());
        ASSERT_EQ(argc, 2);
        ASSERT_STREQ(argv[1], "kept");
        CORBA::Object_var obj = orb->resolve_initial_references("RootPOA");
        root = PortableServer::POA::_narrow(obj.in());
        PortableServer::POAManager_var manager = root->the_POAManager();
        manager->activate();
    }
    static void TearDownTestSuite()
    {
        root = PortableServer::POA::_nil();
        std::thread runner([] { orb->run(); });
        orb->shutdown(true);
        runner.join();
        EXPECT_THROW(orb->work_pending(), CORBA::BAD_INV_ORDER);
        orb->destroy();
    }

    void SetUp() override
    {
        id = root->activate_object(&servant);
        CORBA::Object_var local = root->id_to_reference(id.in());
        CORBA::String_var ior = orb->object_to_string(local.in());
        ref = orb->string_to_object(ior.in());
        const IIOPProfile p = IIOPProfile::decode(IOR::from_string(ior.in()).profiles.at(0));
        port = p.port;
        key = p.object_key;
    }
    void TearDown() override
    {
        ref = CORBA::Object::_nil();
        if (root->_yv_adapter().is_active(std::string(reinterpret_cast<const char*>(id->get_buffer()), id->length())))
            root->deactivate_object(id.in());
        // The servant is ours and dies with the test: a request still
        // finishing on a server thread must have let it go first.
        root->_yv_adapter().wait_until_idle();
    }

    static CORBA::ORB_ptr orb;
    static PortableServer::POA_var root;
    Adder servant;
    PortableServer::ObjectId_var id;
    CORBA::Object_var ref;
    std::uint16_t port = 0;
    std::vector<CORBA::Octet> key;
};

CORBA::ORB_ptr Network::orb = nullptr;
PortableServer::POA_var Network::root;

TEST_F(Network, CallsTravelOverTcp)
{
    const AddResult got = call_add(ref.in(), 6, 4);
    EXPECT_EQ(got.r, 24);
    EXPECT_EQ(got.b, 10);
    EXPECT_EQ(got.c, 2);
    try {
        call_add(ref.in(), 13, 42);
        ADD_FAILURE();
    } catch (const Oops& e) {
        EXPECT_EQ(e.code, 42);
    }
    try {
        call_add(ref.in(), 14, 1);
        ADD_FAILURE();
    } catch (const CORBA::NO_PERMISSION& e) {
        EXPECT_EQ(e.minor(), 7u);
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_YES);
    }
    EXPECT_THROW(call_add(ref.in(), 15, 1), CORBA::UNKNOWN);
    EXPECT_THROW(call_add(ref.in(), 13, 1, add_op_unlisted), CORBA::UNKNOWN);
    const YV_Cxx::Operation missing = {"missing", false, nullptr, 0};
    EXPECT_THROW(ref->_yv_invoke(missing, nullptr, nullptr), CORBA::BAD_OPERATION);
    EXPECT_TRUE(ref->_is_a("IDL:Test/Adder:1.0"));
    EXPECT_FALSE(ref->_is_a("IDL:Test/Other:1.0"));
    EXPECT_FALSE(ref->_non_existent());
    EXPECT_EQ(call_bounce(ref.in(), std::string(40000, 'x')), std::string(40000, 'x'));
    // Too large to send under this ORB's limit.
    EXPECT_THROW(call_bounce(ref.in(), std::string(70000, 'x')), CORBA::IMP_LIMIT);
    call_note(ref.in(), 5);
    for (int i = 0; i < 500 && servant.noted != 5; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(servant.noted, 5);

    root->deactivate_object(id.in());
    EXPECT_THROW(call_add(ref.in(), 1, 1), CORBA::OBJECT_NOT_EXIST);
    EXPECT_TRUE(ref->_non_existent());
}

// Every level of the recursion holds a thread of the server while it waits
// for the next: the pool grows instead of deadlocking.
TEST_F(Network, NestedCallsBackAndForthDoNotDeadlock)
{
    Adder other;
    PortableServer::ObjectId_var other_id = root->activate_object(&other);
    CORBA::Object_var other_local = root->id_to_reference(other_id.in());
    CORBA::String_var text = orb->object_to_string(other_local.in());
    CORBA::Object_var other_ref = orb->string_to_object(text.in());
    EXPECT_EQ(call_nest(ref.in(), other_ref.in(), 24), 24);
    root->deactivate_object(other_id.in());
}

// A request that waits for a later one on the same connection: while its
// thread is held, another thread reads the connection.
TEST_F(Network, ARequestWaitingForTheNextOneOnItsConnectionGetsIt)
{
    std::thread waiting([&] { EXPECT_EQ(call_add(ref.in(), 16, 77).c, 1); });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    call_note(ref.in(), 77);
    waiting.join();
    EXPECT_EQ(YV_ORB::ORBCore::instance().transport()->server_connections(), 1u);
}

TEST_F(Network, ThreadsShareOneConnection)
{
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; ++i) {
                const AddResult r = call_add(ref.in(), t, i);
                if (r.r != t * i || r.b != t + i)
                    ++wrong;
            }
        });
    for (std::thread& t : threads)
        t.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(YV_ORB::ORBCore::instance().transport()->server_connections(), 1u);
}

// More connections than threads may hold, then all of them quiet for longer
// than a thread waits on its connection: every request is still answered.
TEST_F(Network, ConnectionsBeyondTheHoldersAndQuietOnesAreServed)
{
    std::vector<RawPeer> peers;
    peers.reserve(YV_IIOP::Reactor::max_holders + 4);
    while (peers.size() < YV_IIOP::Reactor::max_holders + 4)
        peers.push_back(RawPeer::connect_to(port));
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = 0; i < peers.size(); ++i) {
            const CORBA::Long n = static_cast<CORBA::Long>(i);
            peers[i].send(request_bytes(Version{1, 2}, static_cast<CORBA::ULong>(i), key, "add", {3, n}));
        }
        for (std::size_t i = 0; i < peers.size(); ++i) {
            Message m;
            ASSERT_TRUE(peers[i].receive(m)) << "connection " << i << ", round " << round;
            CORBA::ULong got = 0;
            YV_CDR::InputStream in(nullptr, 0, false);
            ASSERT_EQ(status_of(m, got, in), ReplyHeader::NO_EXCEPTION);
            EXPECT_EQ(got, i);
            EXPECT_EQ(in.read_long(), static_cast<CORBA::Long>(3 * i));
        }
        std::this_thread::sleep_for(YV_IIOP::ServerConnection::hold_time * 3);
    }
}

TEST_F(Network, UnreachableServersAreTransient)
{
    std::uint16_t closed_port;
    {
        RawPeer probe = RawPeer::listen_here();
        closed_port = probe.port();
    }
    CORBA::Object_var gone =
        orb->string_to_object(("corbaloc::127.0.0.1:" + std::to_string(closed_port) + "/x").c_str());
    try {
        call_add(gone.in(), 1, 1);
        ADD_FAILURE();
    } catch (const CORBA::TRANSIENT& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO);
    }
}

// Plays a server on a raw socket: `answer` gets each request and returns
// what to send back (nothing: close the connection).
void serve_raw(RawPeer& listener, int connections,
               const std::function<std::vector<unsigned char>(const Message&, int)>& answer)
{
    for (int c = 0; c < connections; ++c) {
        RawPeer peer = listener.accept();
        Message m;
        if (!peer.receive(m))
            continue;
        const std::vector<unsigned char> reply = answer(m, c);
        if (!reply.empty()) {
            peer.send(reply);
            Message more;
            peer.closed_by_peer(200);
        }
    }
}

CORBA::ULong request_id_of(const Message& m)
{
    YV_CDR::InputStream in = m.body();
    return RequestHeader::read(in, m.header.version).request_id;
}

TEST_F(Network, LostConnectionsAndOrderlyClosesAreToldApart)
{
    RawPeer listener = RawPeer::listen_here();
    const std::string url = "corbaloc::1.2@127.0.0.1:" + std::to_string(listener.port()) + "/k";
    CORBA::Object_var raw = orb->string_to_object(url.c_str());

    // The server goes away after reading the request: it may have been served.
    std::thread server([&] { serve_raw(listener, 1, [](const Message&, int) { return std::vector<unsigned char>(); }); });
    try {
        call_add(raw.in(), 1, 1);
        ADD_FAILURE();
    } catch (const CORBA::COMM_FAILURE& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
    server.join();

    // The server says it closes before answering: the request goes again on
    // a new connection and is answered there.
    server = std::thread([&] {
        serve_raw(listener, 2, [](const Message& m, int c) {
            if (c == 0)
                return MessageBuilder::header_only(Version{1, 2}, CloseConnection);
            YV_ORB::ReplyBuilder reply(m.header.version, request_id_of(m));
            YV_CDR::OutputStream& out = reply.begin(ReplyHeader::NO_EXCEPTION, true);
            out.write_long(100);
            out.write_long(200);
            out.write_long(300);
            return reply.take();
        });
    });
    const AddResult got = call_add(raw.in(), 1, 1);
    EXPECT_EQ(got.r, 100);
    EXPECT_EQ(got.c, 300);
    server.join();
}

TEST_F(Network, ForwardsAreFollowedAndKept)
{
    RawPeer listener = RawPeer::listen_here();
    const std::string url = "corbaloc::1.1@127.0.0.1:" + std::to_string(listener.port()) + "/k";
    CORBA::Object_var forwarding = orb->string_to_object(url.c_str());
    const IOR real = ref->_yv_reference()->ior();
    std::thread server([&] {
        serve_raw(listener, 1, [&](const Message& m, int) {
            YV_ORB::ReplyBuilder reply(m.header.version, request_id_of(m));
            real.write(reply.begin(ReplyHeader::LOCATION_FORWARD, true));
            return reply.take();
        });
    });
    EXPECT_EQ(call_add(forwarding.in(), 2, 3).r, 6);
    server.join();
    // The raw server is gone: the forward serves the next call.
    EXPECT_EQ(call_add(forwarding.in(), 3, 3).r, 9);
    EXPECT_TRUE(forwarding->_is_equivalent(forwarding.in()));
}

std::string escaped(const std::vector<CORBA::Octet>& key)
{
    static const char digits[] = "0123456789abcdef";
    std::string text;
    for (CORBA::Octet o : key) {
        text += '%';
        text += digits[o >> 4];
        text += digits[o & 15];
    }
    return text;
}

// A naming context: resolve(in Name n) answers the Adder for "a.b/c", else
// raises NotFound.
class Context : public virtual PortableServer::ServantBase {
public:
    CORBA::Object_var bound;
    _YV_DispatcherPtr _lookup_dispatcher(const char* operation) override
    {
        return std::strcmp(operation, "resolve") == 0 ? &resolve_dispatch : ServantBase::_lookup_dispatcher(operation);
    }
    // Serves only through the wire form (the naming client never calls in process).
    static void resolve_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus&)
    {
        std::string name;
        class NameIn : public WireOctets {
        public:
            using WireOctets::WireOctets;
            void yv_read(YV_CDR::InputStream& in) override
            {
                for (CORBA::ULong n = in.read_ulong(); n != 0; --n) {
                    const std::string id = read_text(in), kind = read_text(in);
                    value() += (value().empty() ? "" : "/") + id + (kind.empty() ? "" : "." + kind);
                }
            }
        } argument(&name);
        CORBA::Any any(&argument, YV_SHALLOW_COPY);
        YV_Cxx_NV::StackBasedNamedValue nv(any, CORBA::ARG_IN);
        CORBA::NamedValue* values[1] = {&nv};
        YV_Cxx_NV::StackBasedNVList list(1, values);
        request->arguments(&list);
        if (name != "a.b/c") {
            struct NotFound : CORBA::UserException {
                const char* _name() const override { return "NotFound"; }
                const char* _rep_id() const override { return "IDL:omg.org/CosNaming/NamingContext/NotFound:1.0"; }
                void _raise() const override { throw *this; }
                void _yv_write_members(YV_CDR::OutputStream& out) const override
                {
                    out.write_ulong(0);
                    out.write_ulong(0);
                }
            };
            throw NotFound();
        }
        CORBA::Object_ptr result;
        WireObject r(&result, request->yv_get_orb(), YV_Cxx::usage_result);
        result = CORBA::Object::_duplicate(dynamic_cast<Context*>(s)->bound.in());
        CORBA::Any ra(&r, YV_SHALLOW_COPY);
        request->set_result(ra);
        request->yv_respond();
    }
};

TEST_F(Network, UrlsNameObjectsOfPersistentPOAs)
{
    CORBA::PolicyList policies;
    policies.length(2);
    policies[0] = root->create_lifespan_policy(PortableServer::PERSISTENT);
    policies[1] = root->create_id_assignment_policy(PortableServer::USER_ID);
    PortableServer::POAManager_var manager = root->the_POAManager();
    PortableServer::POA_var named = root->create_POA("named", manager.in(), policies);
    Adder thing;
    PortableServer::ObjectId_var thing_id = PortableServer::string_to_ObjectId("thing");
    named->activate_object_with_id(thing_id.in(), &thing);
    CORBA::Object_var thing_ref = named->id_to_reference(thing_id.in());
    const std::vector<CORBA::Octet> thing_key = thing_ref->_yv_reference()->object_key();
    const std::string address = "127.0.0.1:" + std::to_string(port);

    CORBA::Object_var by_url =
        orb->string_to_object(("corbaloc:iiop:1.2@" + address + "/" + escaped(thing_key)).c_str());
    EXPECT_EQ(call_add(by_url.in(), 4, 5).r, 20);
    CORBA::Object_var old_giop = orb->string_to_object(("corbaloc::" + address + "/" + escaped(thing_key)).c_str());
    EXPECT_EQ(call_add(old_giop.in(), 4, 6).r, 24);

    Context context;
    context.bound = CORBA::Object::_duplicate(ref.in());
    PortableServer::ObjectId_var context_id = PortableServer::string_to_ObjectId("ctx");
    named->activate_object_with_id(context_id.in(), &context);
    CORBA::Object_var context_ref = named->id_to_reference(context_id.in());
    const std::string corbaname = "corbaname::" + address + "/" + escaped(context_ref->_yv_reference()->object_key());
    CORBA::Object_var resolved = orb->string_to_object((corbaname + "#a.b/c").c_str());
    ASSERT_FALSE(CORBA::is_nil(resolved.in()));
    EXPECT_EQ(call_add(resolved.in(), 2, 2).r, 4);
    EXPECT_THROW(orb->string_to_object((corbaname + "#a/b").c_str()), CORBA::BAD_PARAM);
    EXPECT_THROW(orb->string_to_object((corbaname + "#a//b").c_str()), CORBA::BAD_PARAM);
    named->destroy(false, true);
}

TEST_F(Network, TheOrbApiOfStringsAndInitialReferences)
{
    CORBA::String_var nil_text = orb->object_to_string(CORBA::Object::_nil());
    CORBA::Object_var nil = orb->string_to_object(nil_text.in());
    EXPECT_TRUE(CORBA::is_nil(nil.in()));
    EXPECT_THROW(orb->string_to_object("garbage"), CORBA::BAD_PARAM);
    EXPECT_THROW(orb->string_to_object("IOR:0"), CORBA::BAD_PARAM);
    EXPECT_THROW(orb->object_to_string(root.in()), CORBA::MARSHAL);
    CORBA::String_var text = orb->object_to_string(ref.in());
    CORBA::Object_var again = orb->string_to_object(text.in());
    EXPECT_TRUE(again->_is_equivalent(ref.in()));
    EXPECT_EQ(again->_hash(1000), ref->_hash(1000));

    CORBA::Object_var thing = orb->resolve_initial_references("Thing");
    EXPECT_FALSE(CORBA::is_nil(thing.in()));
    EXPECT_THROW(orb->resolve_initial_references("Nothing"), CORBA::ORB::InvalidName);
    orb->register_initial_reference("Mine", ref.in());
    EXPECT_THROW(orb->register_initial_reference("Mine", ref.in()), CORBA::ORB::InvalidName);
    CORBA::Object_var mine = orb->resolve_initial_references("Mine");
    EXPECT_EQ(mine.in(), ref.in());
    CORBA::ORB::ObjectIdList_var names = orb->list_initial_services();
    std::vector<std::string> listed;
    for (CORBA::ULong i = 0; i < names->length(); ++i)
        listed.push_back(names[i].in());
    EXPECT_EQ(listed, (std::vector<std::string>{"RootPOA", "Mine", "Thing"}));
    EXPECT_FALSE(orb->work_pending());
}

// Misbehaving clients get the GIOP answer; none of them keeps the server
// from serving the others.
TEST_F(Network, BadInputGetsItsAnswerAndTheServerServesOn)
{
    struct Case {
        const char* what;
        std::vector<unsigned char> octets;
        bool message_error;   // a MessageError comes back
        bool closes;          // then the server closes the connection
    };
    std::vector<unsigned char> huge = MessageBuilder::header_only(Version{1, 2}, Request);
    huge[8] = huge[9] = huge[10] = 0xff;
    huge[11] = 0xf0;
    std::vector<unsigned char> unknown_type = MessageBuilder::header_only(Version{1, 2}, Request);
    unknown_type[7] = 42;
    std::vector<unsigned char> lone_fragment = request_bytes(Version{1, 2}, 5, key, "add", {1, 2});
    lone_fragment[7] = Fragment;
    const Case cases[] = {
        {"bad magic", {'G', 'I', 'O', 'X', 1, 2, 0, 0, 0, 0, 0, 0}, true, true},
        {"GIOP 1.9", {'G', 'I', 'O', 'P', 1, 9, 0, 0, 0, 0, 0, 0}, true, true},
        {"GIOP 2.0", {'G', 'I', 'O', 'P', 2, 0, 0, 0, 0, 0, 0, 0}, true, true},
        {"size beyond the limit", huge, true, true},
        {"unknown type", unknown_type, true, false},
        {"fragment of nothing", lone_fragment, true, true},
        {"close from the client", MessageBuilder::header_only(Version{1, 2}, CloseConnection), false, true},
        {"truncated header", {'G', 'I', 'O', 'P', 1}, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        RawPeer peer = RawPeer::connect_to(port);
        peer.send(c.octets);
        Message m;
        if (c.message_error) {
            ASSERT_TRUE(peer.receive(m));
            EXPECT_EQ(m.header.type, MessageError);
        }
        if (c.closes) {
            EXPECT_TRUE(peer.closed_by_peer());
        } else if (c.message_error) {
            // The connection still serves.
            peer.send(request_bytes(Version{1, 2}, 9, key, "add", {2, 3}));
            ASSERT_TRUE(peer.receive(m));
            EXPECT_EQ(m.header.type, Reply);
        }
        EXPECT_EQ(call_add(ref.in(), 2, 2).r, 4);
    }
}

TEST_F(Network, RequestsOfEveryVersionByteOrderAndShape)
{
    RawPeer peer = RawPeer::connect_to(port);
    // Every version in both byte orders, pipelined, answered by id.
    CORBA::ULong id = 100;
    for (CORBA::Octet minor : {0, 1, 2})
        for (bool little : {true, false})
        {
            const CORBA::ULong rid = id++;
            peer.send(request_bytes(Version{1, minor}, rid, key, "add", {static_cast<CORBA::Long>(rid), 2}, little));
        }
    for (CORBA::ULong n = 0; n < 6; ++n) {
        Message m;
        ASSERT_TRUE(peer.receive(m));
        CORBA::ULong got = 0;
        YV_CDR::InputStream in(nullptr, 0, false);
        ASSERT_EQ(status_of(m, got, in), ReplyHeader::NO_EXCEPTION);
        EXPECT_EQ(m.header.version.minor, (got - 100) / 2);
        EXPECT_EQ(in.read_long(), static_cast<CORBA::Long>(2 * got));
    }
    // A request in two fragments.
    std::vector<unsigned char> whole = request_bytes(Version{1, 2}, 7, key, "add", {5, 6});
    const std::size_t first_body = 24;  // header, request id, flags, disposition, first octets of the key
    std::vector<unsigned char> first(whole.begin(), whole.begin() + MessageHeader::size + first_body);
    MessageHeader h;
    h.parse(first.data());
    h.more_fragments = true;
    h.body_size = first_body;
    h.write(first.data());
    MessageBuilder rest(Version{1, 2}, Fragment);
    rest.stream().write_ulong(7);
    rest.stream().write_octet_array(whole.data() + MessageHeader::size + first_body,
                                    whole.size() - MessageHeader::size - first_body);
    rest.finish();
    peer.send(first);
    peer.send(std::vector<unsigned char>(rest.data(), rest.data() + rest.size()));
    Message m;
    ASSERT_TRUE(peer.receive(m));
    CORBA::ULong got = 0;
    YV_CDR::InputStream in(nullptr, 0, false);
    ASSERT_EQ(status_of(m, got, in), ReplyHeader::NO_EXCEPTION);
    EXPECT_EQ(got, 7u);
    EXPECT_EQ(in.read_long(), 30);
    // A large request arriving in pieces, a small one behind it in the last
    // piece: both answered, the large one's octets intact.
    std::string payload(40000, '\0');
    for (std::size_t i = 0; i < payload.size(); ++i)
        payload[i] = static_cast<char>(i * 7 + i / 256);
    MessageBuilder large(Version{1, 2}, Request);
    RequestHeader lrh;
    lrh.request_id = 10;
    lrh.response_flags = RequestHeader::sync_with_target;
    lrh.target.object_key = key;
    lrh.operation = "bounce";
    lrh.write(large.stream(), Version{1, 2});
    large.begin_body();
    large.stream().write_ulong(static_cast<CORBA::ULong>(payload.size()));
    large.stream().write_octet_array(reinterpret_cast<const CORBA::Octet*>(payload.data()), payload.size());
    large.finish();
    std::vector<unsigned char> pieces(large.data(), large.data() + large.size());
    const std::vector<unsigned char> behind = request_bytes(Version{1, 2}, 11, key, "add", {3, 4});
    pieces.insert(pieces.end(), behind.begin(), behind.end());
    const std::size_t cuts[] = {0, 20, 1000, large.size() - 100, pieces.size()};
    for (std::size_t i = 0; i + 1 < std::size(cuts); ++i) {
        if (i != 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        peer.send(std::vector<unsigned char>(pieces.begin() + cuts[i], pieces.begin() + cuts[i + 1]));
    }
    for (int n = 0; n < 2; ++n) {
        ASSERT_TRUE(peer.receive(m));
        ASSERT_EQ(status_of(m, got, in), ReplyHeader::NO_EXCEPTION);
        if (got == 11) {
            EXPECT_EQ(in.read_long(), 12);
            continue;
        }
        EXPECT_EQ(got, 10u);
        ASSERT_EQ(in.read_ulong(), payload.size());
        EXPECT_EQ(std::memcmp(in.read_octets(payload.size()), payload.data(), payload.size()), 0);
    }
    // A locate request, a cancel and a oneway get their answers (the last two none).
    MessageBuilder cancel(Version{1, 2}, CancelRequest);
    cancel.stream().write_ulong(12345);
    cancel.finish();
    peer.send(std::vector<unsigned char>(cancel.data(), cancel.data() + cancel.size()));
    peer.send(request_bytes(Version{1, 2}, 8, key, "note", {77}, true, false));
    MessageBuilder locate(Version{1, 2}, LocateRequest);
    LocateRequestHeader lh;
    lh.request_id = 9;
    lh.target.object_key = key;
    lh.write(locate.stream(), Version{1, 2});
    locate.finish();
    peer.send(std::vector<unsigned char>(locate.data(), locate.data() + locate.size()));
    ASSERT_TRUE(peer.receive(m));
    EXPECT_EQ(m.header.type, LocateReply);
    in = m.body();
    EXPECT_EQ(LocateReplyHeader::read(in, m.header.version).locate_status, LocateReplyHeader::OBJECT_HERE);
}

} // namespace
