#include "YV_GIOP/ObjectURL.h"

#include "zantic_sys/CORBA/SystemException.h"

#include <cctype>
#include <cstdlib>

namespace YV_GIOP {

namespace {

[[noreturn]] void fail(CORBA::ULong minor)
{
    throw CORBA::BAD_PARAM(minor, CORBA::COMPLETED_NO);
}

bool starts_with_nocase(const std::string& s, const char* prefix)
{
    std::size_t i = 0;
    for (; prefix[i] != '\0'; ++i)
        if (i >= s.size() || std::tolower(static_cast<unsigned char>(s[i])) != prefix[i])
            return false;
    return true;
}

int hex_value(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const int lower = std::tolower(static_cast<unsigned char>(c));
    if (lower >= 'a' && lower <= 'f')
        return lower - 'a' + 10;
    return -1;
}

std::string unescape(const std::string& s)
{
    std::string out;
    out.reserve(s.size());
    for (std::size_t i = 0; i < s.size(); ++i) {
        if (s[i] != '%') {
            out += s[i];
            continue;
        }
        const int hi = i + 1 < s.size() ? hex_value(s[i + 1]) : -1;
        const int lo = i + 2 < s.size() ? hex_value(s[i + 2]) : -1;
        if (hi < 0 || lo < 0)
            fail(ObjectURL::minor_bad_syntax);
        out += static_cast<char>(hi << 4 | lo);
        i += 2;
    }
    return out;
}

// A decimal number of at most `max`; fails with `minor` otherwise.
unsigned long number(const std::string& s, unsigned long max, CORBA::ULong minor)
{
    if (s.empty() || s.size() > 10)
        fail(minor);
    for (char c : s)
        if (!std::isdigit(static_cast<unsigned char>(c)))
            fail(minor);
    const unsigned long v = std::strtoul(s.c_str(), nullptr, 10);
    if (v > max)
        fail(minor);
    return v;
}

ObjectURL::Address parse_address(const std::string& text)
{
    ObjectURL::Address a;
    std::string rest;
    if (starts_with_nocase(text, "rir:")) {
        if (text.size() != 4)
            fail(ObjectURL::minor_bad_address);
        a.rir = true;
        return a;
    }
    if (starts_with_nocase(text, "iiop:"))
        rest = text.substr(5);
    else if (!text.empty() && text[0] == ':')
        rest = text.substr(1);
    else
        fail(ObjectURL::minor_bad_address);

    const std::size_t at = rest.find('@');
    if (at != std::string::npos) {
        const std::string v = rest.substr(0, at);
        const std::size_t dot = v.find('.');
        if (dot == std::string::npos)
            fail(ObjectURL::minor_bad_address);
        a.version.major = static_cast<CORBA::Octet>(number(v.substr(0, dot), 255, ObjectURL::minor_bad_address));
        a.version.minor = static_cast<CORBA::Octet>(number(v.substr(dot + 1), 255, ObjectURL::minor_bad_address));
        rest = rest.substr(at + 1);
    }
    std::string port;
    if (!rest.empty() && rest[0] == '[') {
        const std::size_t close = rest.find(']');
        if (close == std::string::npos || close == 1)
            fail(ObjectURL::minor_bad_address);
        a.host = rest.substr(1, close - 1);
        const std::string after = rest.substr(close + 1);
        if (!after.empty()) {
            if (after[0] != ':')
                fail(ObjectURL::minor_bad_address);
            port = after.substr(1);
        }
    } else {
        const std::size_t colon = rest.find(':');
        a.host = rest.substr(0, colon);
        if (colon != std::string::npos)
            port = rest.substr(colon + 1);
        if (a.host.empty())
            fail(ObjectURL::minor_bad_address);
    }
    if (!port.empty())
        a.port = static_cast<CORBA::UShort>(number(port, 65535, ObjectURL::minor_bad_address));
    return a;
}

} // namespace

bool ObjectURL::is_url(const std::string& text)
{
    return starts_with_nocase(text, "corbaloc:") || starts_with_nocase(text, "corbaname:");
}

ObjectURL ObjectURL::parse(const std::string& text)
{
    ObjectURL url;
    std::string rest;
    if (starts_with_nocase(text, "corbaloc:")) {
        rest = text.substr(9);
    } else if (starts_with_nocase(text, "corbaname:")) {
        url.scheme = corbaname;
        rest = text.substr(10);
        const std::size_t hash = rest.find('#');
        if (hash != std::string::npos) {
            url.name = unescape(rest.substr(hash + 1));
            rest = rest.substr(0, hash);
        }
    } else {
        fail(minor_bad_scheme);
    }

    // The key starts at the first '/' outside a bracketed address.
    std::size_t slash = std::string::npos;
    bool bracket = false;
    for (std::size_t i = 0; i < rest.size() && slash == std::string::npos; ++i) {
        if (rest[i] == '[')
            bracket = true;
        else if (rest[i] == ']')
            bracket = false;
        else if (rest[i] == '/' && !bracket)
            slash = i;
    }
    const std::string list = rest.substr(0, slash);
    if (slash != std::string::npos)
        url.key = unescape(rest.substr(slash + 1));

    std::size_t start = 0;
    for (;;) {
        const std::size_t comma = list.find(',', start);
        url.addresses.push_back(parse_address(list.substr(start, comma - start)));
        if (comma == std::string::npos)
            break;
        start = comma + 1;
    }
    const bool rir = url.addresses.front().rir;
    if (rir && url.addresses.size() != 1)
        fail(minor_bad_address);
    if (url.key.empty() && (rir || url.scheme == corbaname))
        url.key = "NameService";
    return url;
}

} // namespace YV_GIOP
