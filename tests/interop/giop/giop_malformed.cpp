// Sends malformed GIOP to a Probe server over raw sockets and checks its
// answers: MessageError, a system exception in a Reply, or the connection
// closed, as GIOP prescribes for each fault; well-formed requests of every
// GIOP version and byte order, fragmented and pipelined ones are answered
// right. Meanwhile a well-behaved client keeps calling on its own
// connection, and after every case a fresh connection must still be served.
//
// giop_malformed [--omniorb] <file holding the server's IOR>
// Prints one line per case; exits 0 when all passed. --omniorb also accepts
// what omniORB answers where it departs from GIOP (the control run).
#include "CdrWriter.h"
#include "Connection.h"
#include "Message.h"
#include "ObjectAddress.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

using namespace giop;

namespace {

const int answer_ms = 5000;
const Version v10{1, 0}, v11{1, 1}, v12{1, 2};

ObjectAddress target;
// The server is omniORB, whose answers to some faults differ from GIOP's.
bool omniorb = false;

std::unique_ptr<Connection> connect()
{
    return std::unique_ptr<Connection>(new Connection(target.host, target.port));
}

// What may arrive after a bad message.
enum Answer : unsigned {
    message_error = 1,    // a MessageError
    closed = 2,           // the connection closes
    marshal = 4,          // a Reply with MARSHAL, COMPLETED_NO
    bad_param = 8,        // a Reply with BAD_PARAM, COMPLETED_NO
    silence = 16,         // nothing within the time limit
    bad_operation = 32,   // a Reply with BAD_OPERATION, COMPLETED_NO
};

// `answers`, and `omniorb_answers` too when the server is omniORB.
unsigned allowing(unsigned answers, unsigned omniorb_answers)
{
    return omniorb ? answers | omniorb_answers : answers;
}

std::string name_of(const Message& m)
{
    static const char* const names[] = {"Request",         "Reply",        "CancelRequest", "LocateRequest",
                                        "LocateReply",     "CloseConnection", "MessageError", "Fragment"};
    return m.type() < 8 ? names[m.type()] : "message type " + std::to_string(m.type());
}

// Reads what the server answers and checks it is one of `allowed`. A
// MessageError may be followed by the connection closing; when `must_close`
// the connection has to close.
std::string expect(Connection& c, unsigned allowed, std::uint32_t id = 0, bool must_close = false)
{
    Message m;
    Connection::Outcome outcome = c.receive(m, answer_ms);
    if (outcome == Connection::closed)
        return allowed & closed ? "" : "the server closed the connection";
    if (outcome == Connection::timed_out)
        return allowed & silence ? "" : "no answer";
    if (outcome == Connection::garbage)
        return "an answer that is no GIOP message";
    if (m.type() == message_error_message) {
        if (!(allowed & message_error))
            return "MessageError";
        if (m.major() != 1)
            return "MessageError of GIOP " + std::to_string(m.major()) + "." + std::to_string(m.minor());
    } else if (m.type() == reply_message) {
        const Reply r = parse_reply(m);
        const bool is_marshal = r.exception_id == "IDL:omg.org/CORBA/MARSHAL:1.0";
        const bool is_bad_param = r.exception_id == "IDL:omg.org/CORBA/BAD_PARAM:1.0";
        const bool is_bad_operation = r.exception_id == "IDL:omg.org/CORBA/BAD_OPERATION:1.0";
        if (r.status != system_exception ||
            !((allowed & marshal && is_marshal) || (allowed & bad_param && is_bad_param) ||
              (allowed & bad_operation && is_bad_operation)))
            return "a Reply of status " + std::to_string(r.status) + " " + r.exception_id;
        if (r.id != id)
            return "a Reply to request " + std::to_string(r.id) + " instead of " + std::to_string(id);
        if (r.completed != 1)
            return r.exception_id + " with completion status " + std::to_string(r.completed);
    } else {
        return "a " + name_of(m);
    }
    if (must_close && m.type() == message_error_message) {
        outcome = c.receive(m, answer_ms);
        if (outcome != Connection::closed)
            return "the connection stays open after the MessageError";
    }
    return "";
}

// A Reply to request `id` raising the system exception `repository_id`,
// COMPLETED_NO.
std::string expect_exception(Connection& c, std::uint32_t id, const std::string& repository_id)
{
    Message m;
    if (c.receive(m, answer_ms) != Connection::received)
        return "no Reply";
    if (m.type() != reply_message)
        return "a " + name_of(m) + " instead of a Reply";
    const Reply r = parse_reply(m);
    if (r.id != id || r.status != system_exception || r.exception_id != repository_id || r.completed != 1)
        return "Reply " + std::to_string(r.id) + " status " + std::to_string(r.status) + " " + r.exception_id +
               " completed " + std::to_string(r.completed);
    return "";
}

// add(a, b) on `c` answered with a + b, in the request's GIOP version.
std::string expect_sum(Connection& c, Version version, bool little, std::uint32_t id, std::int32_t a, std::int32_t b)
{
    if (!c.send(encode(add_request(version, little, id, target.key, a, b))))
        return "cannot send add()";
    Message m;
    if (c.receive(m, answer_ms) != Connection::received)
        return "no Reply to add()";
    if (m.type() != reply_message)
        return "a " + name_of(m) + " instead of the Reply to add()";
    if (m.major() != version.major || m.minor() != version.minor)
        return "a GIOP " + std::to_string(m.major()) + "." + std::to_string(m.minor()) + " Reply to a GIOP " +
               std::to_string(version.major) + "." + std::to_string(version.minor) + " Request";
    const Reply r = parse_reply(m);
    if (r.id != id || r.status != no_exception)
        return "Reply " + std::to_string(r.id) + " status " + std::to_string(r.status) + " " + r.exception_id;
    if (add_result(m, r) != a + b)
        return "add() answered " + std::to_string(add_result(m, r));
    return "";
}

// The connection still serves requests after whatever the case did.
std::string still_served(Connection& c)
{
    const std::string problem = expect_sum(c, v12, false, 999, 20, 22);
    return problem.empty() ? "" : "afterwards: " + problem;
}

std::vector<std::uint8_t> with_header(const std::vector<std::uint8_t>& header, std::uint32_t body_size,
                                      const std::vector<std::uint8_t>& body)
{
    CdrWriter out(false);
    out.raw(header);
    out.ulong(body_size);
    out.raw(body);
    return out.bytes();
}

// A GIOP 1.2 request header written by hand, for damaging one field.
std::vector<std::uint8_t> request_body(std::uint32_t id, std::uint16_t disposition, std::uint32_t key_length,
                                       const std::string& operation, bool terminate_operation)
{
    CdrWriter out(false);
    out.raw(std::vector<std::uint8_t>(12, 0)); // header placeholder keeps alignment
    out.ulong(id);
    out.octet(3);
    out.raw({0, 0, 0});
    out.ushort(disposition);
    out.ulong(key_length);
    out.raw(target.key);
    out.ulong(static_cast<std::uint32_t>(operation.size() + (terminate_operation ? 1 : 0)));
    out.raw(std::vector<std::uint8_t>(operation.begin(), operation.end()));
    if (terminate_operation)
        out.octet(0);
    out.ulong(0);
    out.align(8);
    out.ulong(1);
    out.ulong(2);
    return std::vector<std::uint8_t>(out.bytes().begin() + 12, out.bytes().end());
}

std::vector<std::uint8_t> giop_header(std::uint8_t major, std::uint8_t minor, std::uint8_t type,
                                      const char* magic = "GIOP")
{
    return {std::uint8_t(magic[0]), std::uint8_t(magic[1]), std::uint8_t(magic[2]), std::uint8_t(magic[3]),
            major, minor, 0, type};
}

struct Case {
    const char* name;
    std::function<std::string()> run;
};

std::vector<Case> cases()
{
    const std::vector<std::uint8_t> add_body = request_body(7, 0, static_cast<std::uint32_t>(target.key.size()), "add",
                                                            true);
    return {
        {"bad magic: MessageError, connection closed",
         [=] {
             auto c = connect();
             c->send(with_header(giop_header(1, 2, request_message, "GIOX"),
                                 static_cast<std::uint32_t>(add_body.size()), add_body));
             // omniORB closes without a MessageError.
             return expect(*c, allowing(message_error, closed), 0, true);
         }},
        {"unknown GIOP version 1.9: MessageError",
         [=] {
             auto c = connect();
             c->send(with_header(giop_header(1, 9, request_message), static_cast<std::uint32_t>(add_body.size()),
                                 add_body));
             return expect(*c, message_error | closed);
         }},
        {"unknown GIOP version 2.0: MessageError",
         [=] {
             auto c = connect();
             c->send(with_header(giop_header(2, 0, request_message), static_cast<std::uint32_t>(add_body.size()),
                                 add_body));
             return expect(*c, message_error | closed);
         }},
        {"unknown message type 42: MessageError",
         [] {
             auto c = connect();
             c->send(with_header(giop_header(1, 2, 42), 0, {}));
             return expect(*c, message_error | closed);
         }},
        {"truncated header then end of stream: connection closed",
         [] {
             auto c = connect();
             c->send({'G', 'I', 'O', 'P', 1, 2, 0});
             c->shutdown_write();
             return expect(*c, message_error | closed, 0, false);
         }},
        {"message size beyond the limit: MessageError or closed",
         [=] {
             auto c = connect();
             c->send(with_header(giop_header(1, 2, request_message), 0xfffffff0u, add_body));
             // omniORB waits for the rest of the message.
             return expect(*c, allowing(message_error | closed, silence));
         }},
        {"body shorter than a request header: MessageError or MARSHAL",
         [] {
             auto c = connect();
             c->send(with_header(giop_header(1, 2, request_message), 6, {0, 0, 0, 9, 3, 0}));
             return expect(*c, message_error | closed | marshal, 9);
         }},
        {"empty Request: MessageError or closed",
         [] {
             auto c = connect();
             c->send(with_header(giop_header(1, 2, request_message), 0, {}));
             return expect(*c, message_error | closed);
         }},
        {"object key longer than the message: MessageError or MARSHAL",
         [] {
             auto c = connect();
             const std::vector<std::uint8_t> body = request_body(8, 0, 0x7ffffff0u, "add", true);
             c->send(with_header(giop_header(1, 2, request_message), static_cast<std::uint32_t>(body.size()), body));
             return expect(*c, message_error | closed | marshal, 8);
         }},
        {"operation name without its NUL: MessageError or MARSHAL",
         [] {
             auto c = connect();
             const std::vector<std::uint8_t> body =
                 request_body(10, 0, static_cast<std::uint32_t>(target.key.size()), "add", false);
             c->send(with_header(giop_header(1, 2, request_message), static_cast<std::uint32_t>(body.size()), body));
             // omniORB takes the octets it was given for the name.
             return expect(*c, allowing(message_error | closed | marshal, bad_operation), 10);
         }},
        {"unknown addressing disposition: MessageError, MARSHAL or BAD_PARAM",
         [] {
             auto c = connect();
             const std::vector<std::uint8_t> body =
                 request_body(11, 7, static_cast<std::uint32_t>(target.key.size()), "add", true);
             c->send(with_header(giop_header(1, 2, request_message), static_cast<std::uint32_t>(body.size()), body));
             return expect(*c, message_error | closed | marshal | bad_param, 11);
         }},
        {"arguments missing: MARSHAL, connection still served",
         [] {
             auto c = connect();
             Request r = add_request(v12, false, 12, target.key, 1, 2);
             r.arguments = nullptr;
             c->send(encode(r));
             std::string problem = expect_exception(*c, 12, "IDL:omg.org/CORBA/MARSHAL:1.0");
             return problem.empty() ? still_served(*c) : problem;
         }},
        {"arguments cut short: MARSHAL, connection still served",
         [] {
             auto c = connect();
             Request r = add_request(v12, false, 13, target.key, 1, 2);
             r.arguments = [](CdrWriter& out) { out.ushort(1); };
             c->send(encode(r));
             std::string problem = expect_exception(*c, 13, "IDL:omg.org/CORBA/MARSHAL:1.0");
             return problem.empty() ? still_served(*c) : problem;
         }},
        {"unknown object key: OBJECT_NOT_EXIST, connection still served",
         [] {
             auto c = connect();
             Request r = add_request(v12, false, 14, {'n', 'o', ' ', 's', 'u', 'c', 'h'}, 1, 2);
             c->send(encode(r));
             std::string problem = expect_exception(*c, 14, "IDL:omg.org/CORBA/OBJECT_NOT_EXIST:1.0");
             return problem.empty() ? still_served(*c) : problem;
         }},
        {"unknown operation: BAD_OPERATION, connection still served",
         [] {
             auto c = connect();
             Request r = add_request(v12, false, 15, target.key, 1, 2);
             r.operation = "no_such_operation";
             c->send(encode(r));
             std::string problem = expect_exception(*c, 15, "IDL:omg.org/CORBA/BAD_OPERATION:1.0");
             return problem.empty() ? still_served(*c) : problem;
         }},
        {"Fragment without a fragmented message: MessageError or ignored",
         [] {
             auto c = connect();
             CdrWriter out(false);
             out.raw(giop_header(1, 2, fragment_message));
             out.ulong(8);
             out.ulong(16);
             out.ulong(0);
             c->send(out.bytes());
             Message m;
             const Connection::Outcome o = c->receive(m, 500);
             if (o == Connection::received && m.type() == message_error_message)
                 return std::string();
             if (o == Connection::closed)
                 return std::string();
             if (o != Connection::timed_out)
                 return "a " + name_of(m);
             return still_served(*c);
         }},
        {"Reply sent to a server: MessageError or ignored",
         [] {
             auto c = connect();
             CdrWriter out(false);
             out.raw(giop_header(1, 2, reply_message));
             out.ulong(12);
             out.ulong(5);
             out.ulong(0);
             out.ulong(0);
             c->send(out.bytes());
             Message m;
             const Connection::Outcome o = c->receive(m, 500);
             if ((o == Connection::received && m.type() == message_error_message) || o == Connection::closed)
                 return std::string();
             if (o != Connection::timed_out)
                 return "a " + name_of(m);
             return still_served(*c);
         }},
        {"LocateRequest for the object: OBJECT_HERE",
         [] {
             auto c = connect();
             c->send(locate_request(v12, false, 16, target.key));
             Message m;
             if (c->receive(m, answer_ms) != Connection::received)
                 return std::string("no LocateReply");
             const LocateReply r = parse_locate_reply(m);
             return r.id == 16 && r.status == 1 ? "" : "status " + std::to_string(r.status);
         }},
        {"LocateRequest for an unknown key: UNKNOWN_OBJECT",
         [] {
             auto c = connect();
             c->send(locate_request(v12, true, 17, {'g', 'o', 'n', 'e'}));
             Message m;
             if (c->receive(m, answer_ms) != Connection::received)
                 return std::string("no LocateReply");
             const LocateReply r = parse_locate_reply(m);
             return r.id == 17 && r.status == 0 ? "" : "status " + std::to_string(r.status);
         }},
        {"CancelRequest of no request: no answer, connection still served",
         [] {
             auto c = connect();
             c->send(cancel_request(v12, false, 12345));
             return still_served(*c);
         }},
        {"oneway request: no Reply, connection still served",
         [] {
             auto c = connect();
             Request r = add_request(v12, false, 18, target.key, 1, 2);
             r.response_expected = false;
             c->send(encode(r));
             return still_served(*c);
         }},
        {"GIOP 1.0, 1.1 and 1.2 requests in both byte orders",
         [] {
             auto c = connect();
             std::string problems;
             std::uint32_t id = 100;
             for (Version v : {v10, v11, v12})
                 for (bool little : {false, true}) {
                     const std::string p = expect_sum(*c, v, little, id, -7, static_cast<std::int32_t>(id));
                     if (!p.empty())
                         problems += p + "; ";
                     ++id;
                 }
             return problems;
         }},
        {"request in two fragments",
         [] {
             auto c = connect();
             std::vector<std::uint8_t> whole = encode(add_request(v12, false, 19, target.key, 30, 12));
             // First part: header with the more-fragments flag and the body up
             // to the end of the request header (a multiple of 8 octets).
             const std::size_t split = whole.size() - 8;
             std::vector<std::uint8_t> first(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(split));
             first[6] |= 2;
             CdrWriter size(false);
             size.ulong(static_cast<std::uint32_t>(split - 12));
             std::copy(size.bytes().begin(), size.bytes().end(), first.begin() + 8);
             CdrWriter second(false);
             second.raw(giop_header(1, 2, fragment_message));
             second.ulong(12);
             second.ulong(19);
             second.raw(std::vector<std::uint8_t>(whole.end() - 8, whole.end()));
             c->send(first);
             c->send(second.bytes());
             Message m;
             if (c->receive(m, answer_ms) != Connection::received || m.type() != reply_message)
                 return std::string("no Reply");
             const Reply r = parse_reply(m);
             if (r.id != 19 || r.status != no_exception || add_result(m, r) != 42)
                 return "Reply " + std::to_string(r.id) + " status " + std::to_string(r.status) + " " +
                        r.exception_id;
             return still_served(*c);
         }},
        {"20 pipelined requests on one connection",
         [] {
             auto c = connect();
             std::vector<std::uint8_t> all;
             for (std::uint32_t id = 200; id < 220; ++id) {
                 const std::vector<std::uint8_t> one =
                     encode(add_request(v12, id % 2 == 0, id, target.key, static_cast<std::int32_t>(id), 1));
                 all.insert(all.end(), one.begin(), one.end());
             }
             c->send(all);
             std::set<std::uint32_t> answered;
             for (int i = 0; i < 20; ++i) {
                 Message m;
                 if (c->receive(m, answer_ms) != Connection::received || m.type() != reply_message)
                     return "only " + std::to_string(i) + " replies";
                 const Reply r = parse_reply(m);
                 if (r.status != no_exception || add_result(m, r) != static_cast<std::int32_t>(r.id) + 1)
                     return "a wrong reply to request " + std::to_string(r.id);
                 answered.insert(r.id);
             }
             return answered.size() == 20 ? "" : std::string("a request answered twice");
         }},
        {"CloseConnection from the client: connection closed",
         [] {
             auto c = connect();
             c->send(header_only(v12, false, close_connection_message));
             return expect(*c, closed);
         }},
    };
}

} // namespace

int main(int argc, char** argv)
{
    omniorb = argc == 3 && std::string(argv[1]) == "--omniorb";
    if (argc != 2 + omniorb) {
        std::fprintf(stderr, "usage: giop_malformed [--omniorb] <IOR file>\n");
        return 2;
    }
    try {
        target = ObjectAddress::from_file(argv[argc - 1]);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "giop_malformed: %s\n", e.what());
        return 2;
    }

    // The well-behaved client: calls add() on its own connection until the
    // cases are done; every answer must be right.
    std::atomic<bool> done(false);
    std::atomic<int> good(0);
    std::string good_problem;
    std::thread well_behaved([&] {
        try {
            auto c = connect();
            for (std::uint32_t id = 1; !done; ++id) {
                const std::string p = expect_sum(*c, v12, id % 2 == 0, id, static_cast<std::int32_t>(id), 5);
                if (!p.empty()) {
                    good_problem = p;
                    return;
                }
                ++good;
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        } catch (const std::exception& e) {
            good_problem = e.what();
        }
    });

    int failed = 0;
    for (const Case& c : cases()) {
        std::string problem;
        try {
            problem = c.run();
            if (problem.empty()) {
                auto fresh = connect();
                problem = still_served(*fresh);
                if (!problem.empty())
                    problem = "a new connection is not served " + problem;
            }
        } catch (const std::exception& e) {
            problem = e.what();
        }
        if (problem.empty()) {
            std::printf("ok   %s\n", c.name);
        } else {
            ++failed;
            std::printf("FAIL %s: %s\n", c.name, problem.c_str());
        }
        std::fflush(stdout);
    }
    done = true;
    well_behaved.join();
    if (good_problem.empty() && good > 0) {
        std::printf("ok   a well-behaved client on its own connection: %d right answers meanwhile\n", good.load());
    } else {
        ++failed;
        std::printf("FAIL a well-behaved client on its own connection: %s after %d right answers\n",
                    good_problem.empty() ? "no answers" : good_problem.c_str(), good.load());
    }
    std::printf("== %d failed\n", failed);
    return failed ? 1 : 0;
}
