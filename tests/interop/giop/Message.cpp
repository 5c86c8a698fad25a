#include "Message.h"

#include "CdrReader.h"
#include "CdrWriter.h"

#include <stdexcept>

namespace giop {

namespace {

// Writes the header with the size left open; end() fills it in.
void begin(CdrWriter& out, Version version, std::uint8_t type, std::uint8_t flags = 0)
{
    out.raw({'G', 'I', 'O', 'P', version.major, version.minor});
    out.octet(static_cast<std::uint8_t>(flags | (out.little_endian() ? 1 : 0)));
    out.octet(type);
    out.ulong(0);
}

std::vector<std::uint8_t> end(CdrWriter& out)
{
    out.patch_ulong(8, static_cast<std::uint32_t>(out.size() - 12));
    return out.bytes();
}

void skip_service_contexts(CdrReader& in)
{
    const std::uint32_t count = in.ulong();
    for (std::uint32_t i = 0; i < count; ++i) {
        in.ulong();
        in.octets();
    }
}

} // namespace

std::uint32_t Message::body_size() const
{
    CdrReader in(bytes, little_endian(), 8);
    return in.ulong();
}

std::vector<std::uint8_t> encode(const Request& request)
{
    CdrWriter out(request.little_endian);
    begin(out, request.version, request_message);
    if (request.version.minor >= 2) {
        out.ulong(request.id);
        out.octet(request.response_expected ? 3 : 0);
        out.raw({0, 0, 0});
        out.ushort(0); // KeyAddr
        out.octets(request.key);
        out.string(request.operation);
        out.ulong(0); // no service contexts
        if (request.arguments)
            out.align(8);
    } else {
        out.ulong(0);
        out.ulong(request.id);
        out.octet(request.response_expected ? 1 : 0);
        if (request.version.minor == 1)
            out.raw({0, 0, 0});
        out.octets(request.key);
        out.string(request.operation);
        out.octets({}); // requesting principal
    }
    if (request.arguments)
        request.arguments(out);
    return end(out);
}

Request add_request(Version version, bool little_endian, std::uint32_t id, const std::vector<std::uint8_t>& key,
                    std::int32_t a, std::int32_t b)
{
    Request r;
    r.version = version;
    r.little_endian = little_endian;
    r.id = id;
    r.key = key;
    r.operation = "add";
    r.arguments = [a, b](CdrWriter& out) {
        out.ulong(static_cast<std::uint32_t>(a));
        out.ulong(static_cast<std::uint32_t>(b));
    };
    return r;
}

std::vector<std::uint8_t> locate_request(Version version, bool little_endian, std::uint32_t id,
                                         const std::vector<std::uint8_t>& key)
{
    CdrWriter out(little_endian);
    begin(out, version, locate_request_message);
    out.ulong(id);
    if (version.minor >= 2)
        out.ushort(0);
    out.octets(key);
    return end(out);
}

std::vector<std::uint8_t> cancel_request(Version version, bool little_endian, std::uint32_t id)
{
    CdrWriter out(little_endian);
    begin(out, version, cancel_request_message);
    out.ulong(id);
    return end(out);
}

std::vector<std::uint8_t> header_only(Version version, bool little_endian, std::uint8_t type)
{
    CdrWriter out(little_endian);
    begin(out, version, type);
    return end(out);
}

Reply parse_reply(const Message& message)
{
    if (message.type() != reply_message)
        throw std::runtime_error("not a Reply");
    CdrReader in(message.bytes, message.little_endian(), 12);
    Reply reply;
    if (message.minor() >= 2) {
        reply.id = in.ulong();
        reply.status = in.ulong();
        skip_service_contexts(in);
        if (in.left())
            in.align(8);
    } else {
        skip_service_contexts(in);
        reply.id = in.ulong();
        reply.status = in.ulong();
    }
    reply.body = in.position();
    if (reply.status == system_exception) {
        reply.exception_id = in.string();
        reply.minor = in.ulong();
        reply.completed = in.ulong();
    }
    return reply;
}

std::int32_t add_result(const Message& message, const Reply& reply)
{
    CdrReader in(message.bytes, message.little_endian(), reply.body);
    return static_cast<std::int32_t>(in.ulong());
}

LocateReply parse_locate_reply(const Message& message)
{
    if (message.type() != locate_reply_message)
        throw std::runtime_error("not a LocateReply");
    CdrReader in(message.bytes, message.little_endian(), 12);
    LocateReply reply;
    reply.id = in.ulong();
    reply.status = in.ulong();
    return reply;
}

} // namespace giop
