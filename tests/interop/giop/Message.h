// GIOP messages written and read by hand: the few a test client sends
// (requests, locate requests, cancels, headers alone) and the answers it
// reads (replies, locate replies, message errors).
#ifndef GIOP_MESSAGE_H
#define GIOP_MESSAGE_H

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace giop {

class CdrWriter;

enum MessageType : std::uint8_t {
    request_message = 0,
    reply_message = 1,
    cancel_request_message = 2,
    locate_request_message = 3,
    locate_reply_message = 4,
    close_connection_message = 5,
    message_error_message = 6,
    fragment_message = 7,
};

enum ReplyStatus : std::uint32_t {
    no_exception = 0,
    user_exception = 1,
    system_exception = 2,
    location_forward = 3,
};

struct Version {
    std::uint8_t major;
    std::uint8_t minor;
};

// One whole message: the 12-octet header and the body.
struct Message {
    std::vector<std::uint8_t> bytes;

    std::uint8_t major() const { return bytes[4]; }
    std::uint8_t minor() const { return bytes[5]; }
    std::uint8_t flags() const { return bytes[6]; }
    std::uint8_t type() const { return bytes[7]; }
    bool little_endian() const { return flags() & 1; }
    std::uint32_t body_size() const;
};

struct Request {
    Version version{1, 2};
    bool little_endian = false;
    std::uint32_t id = 1;
    bool response_expected = true;
    std::vector<std::uint8_t> key;
    std::string operation;
    // Writes the arguments (the body); may be empty.
    std::function<void(CdrWriter&)> arguments;
};

// The octets of a request message.
std::vector<std::uint8_t> encode(const Request& request);
// Probe::add(a, b).
Request add_request(Version version, bool little_endian, std::uint32_t id, const std::vector<std::uint8_t>& key,
                    std::int32_t a, std::int32_t b);
std::vector<std::uint8_t> locate_request(Version version, bool little_endian, std::uint32_t id,
                                         const std::vector<std::uint8_t>& key);
std::vector<std::uint8_t> cancel_request(Version version, bool little_endian, std::uint32_t id);
// A message of `type` with an empty body (CloseConnection, MessageError).
std::vector<std::uint8_t> header_only(Version version, bool little_endian, std::uint8_t type);

struct Reply {
    std::uint32_t id = 0;
    std::uint32_t status = 0;
    // For a system exception.
    std::string exception_id;
    std::uint32_t minor = 0;
    std::uint32_t completed = 0;
    // Where the result starts (no_exception).
    std::size_t body = 0;
};

// Decodes a Reply of GIOP 1.0, 1.1 or 1.2 (std::runtime_error when it is
// malformed).
Reply parse_reply(const Message& message);
// The long a reply to add() carries.
std::int32_t add_result(const Message& message, const Reply& reply);

struct LocateReply {
    std::uint32_t id = 0;
    std::uint32_t status = 0;
};
LocateReply parse_locate_reply(const Message& message);

} // namespace giop

#endif
