// GIOP messages against the octets an omniORB 4.2 client and server
// exchanged (data/giop): headers of every version, request and reply
// headers, locate messages, exceptions in replies, and fragments put
// together.
#include "TestData.h"

#include "YV_GIOP/FragmentAssembler.h"
#include "YV_GIOP/LocateReplyHeader.h"
#include "YV_GIOP/LocateRequestHeader.h"
#include "YV_GIOP/Message.h"
#include "YV_GIOP/MessageBuilder.h"
#include "YV_GIOP/ReplyHeader.h"
#include "YV_GIOP/RequestHeader.h"
#include "YV_GIOP/SystemExceptionCodec.h"
#include "YV_GIOP/CdrText.h"

#include <omg/CORBA.hh>

#include <gtest/gtest.h>

#include <string>

using namespace YV_GIOP;

namespace {

Message message_of(const std::string& hex)
{
    Message m;
    m.octets = orbtest::from_hex(hex);
    EXPECT_GE(m.octets.size(), MessageHeader::size);
    EXPECT_EQ(m.header.parse(m.octets.data()), MessageHeader::ok);
    EXPECT_EQ(m.header.body_size + MessageHeader::size, m.octets.size());
    return m;
}

Version version_of(const std::string& name)
{
    const char minor = name.back();
    return Version{1, static_cast<CORBA::Octet>(minor - '0')};
}

std::vector<CORBA::Octet> key(const char* text)
{
    return std::vector<CORBA::Octet>(text, text + std::strlen(text));
}

// The omniORB client's requests: what each header holds and what follows.
TEST(GiopRequest, ReadsTheRequestsOfAnotherOrb)
{
    struct Case {
        const char* op;
        bool response;
        CORBA::ULong request_id;
    };
    const std::map<std::string, Case> cases = {
        {"say", {"say", true, 4}}, {"add", {"add", true, 4}}, {"ping", {"ping", false, 4}},
        {"nonex", {"_non_existent", true, 2}},
    };
    auto recorded = orbtest::records("omniorb_client_requests.txt");
    int seen = 0;
    for (const auto& r : recorded) {
        const std::string name = r.first;
        const std::string kind = name.substr(0, name.find('_'));
        if (kind == "locate")
            continue;
        SCOPED_TRACE(name);
        const Case& c = cases.at(kind);
        Message m = message_of(r.second.at(0));
        EXPECT_EQ(m.header.version, version_of(name));
        EXPECT_EQ(m.header.type, Request);
        EXPECT_TRUE(m.header.little_endian);
        YV_CDR::InputStream in = m.body();
        RequestHeader h = RequestHeader::read(in, m.header.version);
        EXPECT_EQ(h.operation, c.op);
        EXPECT_EQ(h.response_expected(), c.response);
        EXPECT_EQ(h.request_id, c.request_id);
        EXPECT_EQ(h.target.key(), key("EchoKey"));
        EXPECT_TRUE(h.service_contexts.contexts.empty());
        if (m.header.version.minor >= 2 && in.remaining() != 0)
            in.align(8);
        if (kind == "say") {
            EXPECT_EQ(read_text(in), "hi");
        } else if (kind == "add") {
            EXPECT_EQ(in.read_long(), 2);
            EXPECT_EQ(in.read_long(), 3);
        } else if (kind == "ping") {
            EXPECT_EQ(in.read_long(), 7);
        }
        EXPECT_EQ(in.remaining(), 0u);
        ++seen;
    }
    EXPECT_EQ(seen, 12);
}

// The same requests written here: the octets agree with omniORB's, except
// the three octets after response_expected, which omniORB leaves
// uninitialised before GIOP 1.2.
TEST(GiopRequest, WritesTheOctetsAnotherOrbWrites)
{
    auto recorded = orbtest::records("omniorb_client_requests.txt");
    for (const char* name : {"say_1.0", "say_1.1", "say_1.2", "add_1.2", "ping_1.0", "ping_1.2", "nonex_1.1"}) {
        SCOPED_TRACE(name);
        const std::string n = name;
        const Version v = version_of(n);
        std::vector<unsigned char> expected = orbtest::from_hex(recorded.at(n).at(0));
        if (v.minor < 2)
            std::fill(expected.begin() + 21, expected.begin() + 24, 0);

        MessageBuilder b(v, Request, true);
        RequestHeader h;
        h.request_id = n.compare(0, 5, "nonex") == 0 ? 2 : 4;
        h.response_flags = n.compare(0, 4, "ping") == 0 ? RequestHeader::sync_none : RequestHeader::sync_with_target;
        h.target.object_key = key("EchoKey");
        h.operation = n.compare(0, 3, "say") == 0 ? "say" : n.compare(0, 3, "add") == 0 ? "add"
                      : n.compare(0, 4, "ping") == 0 ? "ping" : "_non_existent";
        h.write(b.stream(), v);
        if (h.operation == "say") {
            b.begin_body();
            write_text(b.stream(), "hi");
        } else if (h.operation == "add") {
            b.begin_body();
            b.stream().write_long(2);
            b.stream().write_long(3);
        } else if (h.operation == "ping") {
            b.begin_body();
            b.stream().write_long(7);
        }
        b.finish();
        EXPECT_EQ(orbtest::to_hex(b.data(), b.size()), orbtest::to_hex(expected));
    }
}

TEST(GiopLocate, RequestsAndRepliesAgreeWithAnotherOrb)
{
    auto requests = orbtest::records("omniorb_client_requests.txt");
    auto replies = orbtest::records("omniorb_server_replies.txt");
    for (const char* v : {"1.0", "1.1", "1.2"}) {
        SCOPED_TRACE(v);
        const Version version = version_of(v);
        Message m = message_of(requests.at(std::string("locate_") + v).at(0));
        EXPECT_EQ(m.header.type, LocateRequest);
        YV_CDR::InputStream in = m.body();
        LocateRequestHeader h = LocateRequestHeader::read(in, version);
        EXPECT_EQ(h.request_id, 2u);
        EXPECT_EQ(h.target.key(), key("EchoKey"));
        EXPECT_EQ(in.remaining(), 0u);

        MessageBuilder b(version, LocateRequest, true);
        h.write(b.stream(), version);
        b.finish();
        EXPECT_EQ(orbtest::to_hex(b.data(), b.size()), requests.at(std::string("locate_") + v).at(0));

        const std::string minor(1, v[2]);
        for (const char* which : {"locate_here_", "locate_unknown_"}) {
            const std::string reply = replies.at(which + minor).at(1);
            Message r = message_of(reply);
            EXPECT_EQ(r.header.type, LocateReply);
            YV_CDR::InputStream rin = r.body();
            LocateReplyHeader rh = LocateReplyHeader::read(rin, version);
            const bool here = std::string(which) == "locate_here_";
            EXPECT_EQ(rh.locate_status, here ? LocateReplyHeader::OBJECT_HERE : LocateReplyHeader::UNKNOWN_OBJECT);
            MessageBuilder rb(version, LocateReply, r.header.little_endian);
            rh.write(rb.stream());
            rb.finish();
            EXPECT_EQ(orbtest::to_hex(rb.data(), rb.size()), reply);
        }
    }
}

// omniORB's replies: results, user and system exceptions; the reply
// headers written here for the same answers are the same octets.
TEST(GiopReply, ReadsAndWritesTheRepliesOfAnotherOrb)
{
    auto replies = orbtest::records("omniorb_server_replies.txt");
    struct Case {
        const char* name;
        ReplyHeader::Status status;
        CORBA::ULong request_id;
    };
    const Case cases[] = {
        {"say_0", ReplyHeader::NO_EXCEPTION, 5},  {"say_1", ReplyHeader::NO_EXCEPTION, 5},
        {"say_2", ReplyHeader::NO_EXCEPTION, 5},  {"add_2", ReplyHeader::NO_EXCEPTION, 9},
        {"oops_0", ReplyHeader::USER_EXCEPTION, 6}, {"oops_2", ReplyHeader::USER_EXCEPTION, 6},
        {"sysex_2", ReplyHeader::SYSTEM_EXCEPTION, 10}, {"badop_2", ReplyHeader::SYSTEM_EXCEPTION, 11},
        {"nokey_2", ReplyHeader::SYSTEM_EXCEPTION, 12}, {"nonex_2", ReplyHeader::NO_EXCEPTION, 13},
        {"isa_2", ReplyHeader::NO_EXCEPTION, 14},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string hex = replies.at(c.name).at(1);
        Message m = message_of(hex);
        EXPECT_EQ(m.header.type, Reply);
        YV_CDR::InputStream in = m.body();
        ReplyHeader h = ReplyHeader::read(in, m.header.version);
        EXPECT_EQ(h.request_id, c.request_id);
        EXPECT_EQ(h.reply_status, c.status);
        const std::size_t body_at = in.offset();

        MessageBuilder b(m.header.version, Reply, m.header.little_endian);
        h.write(b.stream(), m.header.version);
        EXPECT_EQ(b.size(), body_at);
        const std::size_t header = MessageHeader::size;
        EXPECT_EQ(orbtest::to_hex(b.data() + header, b.size() - header),
                  hex.substr(2 * header, 2 * (body_at - header)));

        const std::string name = c.name;
        if (in.remaining() != 0 && m.header.version.minor >= 2)
            in.align(8);
        if (name.compare(0, 3, "say") == 0) {
            EXPECT_EQ(read_text(in), "hi");
        } else if (name == "add_2") {
            EXPECT_EQ(in.read_long(), 5);
        } else if (name == "nonex_2") {
            EXPECT_FALSE(in.read_boolean());
        } else if (name == "isa_2") {
            EXPECT_TRUE(in.read_boolean());
        } else if (name.compare(0, 4, "oops") == 0) {
            EXPECT_EQ(read_text(in), "IDL:Test/Oops:1.0");
            EXPECT_EQ(in.read_long(), 3);
            EXPECT_EQ(read_text(in), "bad");
        } else if (name == "sysex_2") {
            try {
                SystemExceptionCodec::read_and_raise(in);
                ADD_FAILURE() << "nothing thrown";
            } catch (const CORBA::NO_PERMISSION& e) {
                EXPECT_EQ(e.minor(), 5u);
                EXPECT_EQ(e.completed(), CORBA::COMPLETED_YES);
            }
        } else if (name == "badop_2") {
            EXPECT_THROW(SystemExceptionCodec::read_and_raise(in), CORBA::BAD_OPERATION);
        } else if (name == "nokey_2") {
            EXPECT_THROW(SystemExceptionCodec::read_and_raise(in), CORBA::OBJECT_NOT_EXIST);
        }
        EXPECT_EQ(in.remaining(), 0u);
    }
}

TEST(GiopReply, UnknownSystemExceptionsBecomeUnknown)
{
    YV_CDR::OutputStream out;
    write_text(out, "IDL:vendor/CORBA/NOT_STANDARD:1.0");
    out.write_ulong(42);
    out.write_ulong(CORBA::COMPLETED_MAYBE);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    try {
        SystemExceptionCodec::read_and_raise(in);
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.minor(), 42u);
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
    YV_CDR::OutputStream bad;
    write_text(bad, "IDL:omg.org/CORBA/TRANSIENT:1.0");
    bad.write_ulong(0);
    bad.write_ulong(7);
    YV_CDR::InputStream bad_in(bad.data(), bad.size(), bad.little_endian());
    EXPECT_THROW(SystemExceptionCodec::read_and_raise(bad_in), CORBA::MARSHAL);
}

TEST(GiopHeader, TellsWhatIsWrongWithAHeader)
{
    struct Case {
        const char* hex;
        MessageHeader::Problem problem;
    };
    const Case cases[] = {
        {"47494f50010200000000000c", MessageHeader::ok},
        {"47494f580102000000000000", MessageHeader::bad_magic},
        {"00000000000000000000000000", MessageHeader::bad_magic},
        {"47494f500103000000000000", MessageHeader::bad_version},
        {"47494f500200000000000000", MessageHeader::bad_version},
        {"47494f500102000800000000", MessageHeader::bad_type},
        {"47494f500100000700000000", MessageHeader::bad_type},
        {"47494f50010100ff00000000", MessageHeader::bad_type},
        {"47494f500101000700000000", MessageHeader::ok},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.hex);
        const std::vector<unsigned char> octets = orbtest::from_hex(c.hex);
        MessageHeader h;
        EXPECT_EQ(h.parse(octets.data()), c.problem);
    }
    // Flags: byte order and more fragments; GIOP 1.0 has no fragments.
    MessageHeader h;
    std::vector<unsigned char> v10 = orbtest::from_hex("47494f500100030000000010");
    ASSERT_EQ(h.parse(v10.data()), MessageHeader::ok);
    EXPECT_TRUE(h.little_endian);
    EXPECT_FALSE(h.more_fragments);
    EXPECT_EQ(h.body_size, 0x10000000u);
    std::vector<unsigned char> v12 = orbtest::from_hex("47494f500102020000000010");
    ASSERT_EQ(h.parse(v12.data()), MessageHeader::ok);
    EXPECT_FALSE(h.little_endian);
    EXPECT_TRUE(h.more_fragments);
    EXPECT_EQ(h.body_size, 0x10u);
    unsigned char written[12];
    h.write(written);
    EXPECT_EQ(orbtest::to_hex(written, 12), "47494f500102020000000010");
}

// Malformed headers never read past their octets.
TEST(GiopRequest, TruncatedOrForgedHeadersRaiseMarshal)
{
    auto requests = orbtest::records("omniorb_client_requests.txt");
    for (const char* name : {"say_1.0", "say_1.1", "say_1.2"}) {
        const std::vector<unsigned char> whole = orbtest::from_hex(requests.at(name).at(0));
        const Version v = version_of(name);
        for (std::size_t cut = MessageHeader::size; cut + 8 < whole.size(); ++cut) {
            YV_CDR::InputStream in(whole.data(), cut, true);
            in.skip(MessageHeader::size);
            EXPECT_THROW(RequestHeader::read(in, v), CORBA::MARSHAL) << name << " cut at " << cut;
        }
    }
    // A target address of an unknown disposition; a forged service context count.
    YV_CDR::OutputStream out(false);
    out.write_ulong(1);
    out.write_octet(3);
    out.write_octet_array(reinterpret_cast<const CORBA::Octet*>("\0\0\0"), 3);
    out.write_short(7);
    YV_CDR::InputStream in(out.data(), out.size(), false);
    EXPECT_THROW(RequestHeader::read(in, Version{1, 2}), CORBA::MARSHAL);
    YV_CDR::OutputStream forged(false);
    forged.write_ulong(0x7fffffff);
    YV_CDR::InputStream fin(forged.data(), forged.size(), false);
    EXPECT_THROW(RequestHeader::read(fin, Version{1, 0}), CORBA::MARSHAL);
}

// omniORB sends a 20000-character string in three fragments; put together,
// the request reads as one.
TEST(GiopFragments, PutsTogetherTheFragmentsOfAnotherOrb)
{
    auto recorded = orbtest::records("omniorb_fragments.txt");
    for (const char* v : {"1.1", "1.2"}) {
        SCOPED_TRACE(v);
        FragmentAssembler assembler(1 << 20);
        const std::vector<std::string>& pieces = recorded.at(v);
        ASSERT_EQ(pieces.size(), 3u);
        Message whole;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            Message piece = message_of(pieces[i]);
            EXPECT_EQ(piece.header.more_fragments, i + 1 < pieces.size());
            EXPECT_EQ(assembler.add(std::move(piece), whole),
                      i + 1 < pieces.size() ? FragmentAssembler::pending : FragmentAssembler::complete);
        }
        EXPECT_EQ(assembler.kept(), 0u);
        EXPECT_FALSE(whole.header.more_fragments);
        EXPECT_EQ(whole.header.body_size + MessageHeader::size, whole.octets.size());
        YV_CDR::InputStream in = whole.body();
        RequestHeader h = RequestHeader::read(in, whole.header.version);
        EXPECT_EQ(h.operation, "say");
        if (whole.header.version.minor >= 2)
            in.align(8);
        EXPECT_EQ(read_text(in), std::string(20000, 'a'));
        EXPECT_EQ(in.remaining(), 0u);
    }
}

// A message of `type` with more-fragments set as asked, carrying a request
// id and `extra` octets.
Message piece(MsgType type, CORBA::ULong id, bool more, std::size_t extra, Version v = Version{1, 2})
{
    MessageBuilder b(v, type, false);
    b.stream().write_ulong(id);
    for (std::size_t i = 0; i < extra; ++i)
        b.stream().write_octet(static_cast<CORBA::Octet>(id));
    b.finish();
    Message m;
    m.octets.assign(b.data(), b.data() + b.size());
    m.header.parse(m.octets.data());
    m.header.more_fragments = more;
    m.header.write(m.octets.data());
    return m;
}

TEST(GiopFragments, InterleavesByRequestIdAndRefusesWhatDoesNotFit)
{
    Message whole;
    {
        FragmentAssembler a(1024);
        EXPECT_EQ(a.add(piece(Request, 1, true, 4), whole), FragmentAssembler::pending);
        EXPECT_EQ(a.add(piece(Request, 2, true, 4), whole), FragmentAssembler::pending);
        EXPECT_EQ(a.add(piece(Request, 3, false, 4), whole), FragmentAssembler::complete);
        EXPECT_EQ(a.add(piece(Fragment, 2, false, 8), whole), FragmentAssembler::complete);
        EXPECT_EQ(whole.octets.size(), MessageHeader::size + 8 + 8);
        YV_CDR::InputStream in = whole.body();
        EXPECT_EQ(in.read_ulong(), 2u);
        EXPECT_EQ(a.add(piece(Fragment, 1, true, 8), whole), FragmentAssembler::pending);
        EXPECT_EQ(a.add(piece(Fragment, 1, false, 0), whole), FragmentAssembler::complete);
        EXPECT_EQ(whole.header.body_size, 8u + 8u);
        EXPECT_EQ(a.kept(), 0u);
    }
    struct Case {
        const char* what;
        std::vector<Message> pieces;
    };
    std::vector<Case> errors;
    errors.push_back({"fragment without a message", {piece(Fragment, 1, false, 0)}});
    errors.push_back({"fragment of another id", {piece(Request, 1, true, 0), piece(Fragment, 9, false, 0)}});
    errors.push_back({"second start of one id", {piece(Request, 1, true, 0), piece(Request, 1, true, 0)}});
    errors.push_back({"over the limit", {piece(Request, 1, true, 64), piece(Fragment, 1, true, 64)}});
    errors.push_back({"fragmented close", {piece(CloseConnection, 1, true, 0)}});
    errors.push_back({"1.1 message between message and fragment",
                      {piece(Request, 1, true, 0, Version{1, 1}), piece(Request, 2, false, 0, Version{1, 1})}});
    errors.push_back({"fragment of another version",
                      {piece(Request, 1, true, 0, Version{1, 1}), piece(Fragment, 1, false, 0, Version{1, 2})}});
    for (Case& c : errors) {
        SCOPED_TRACE(c.what);
        FragmentAssembler a(100);
        FragmentAssembler::Result last = FragmentAssembler::pending;
        for (Message& m : c.pieces)
            last = a.add(std::move(m), whole);
        EXPECT_EQ(last, FragmentAssembler::error);
    }
}

} // namespace
