#include "YV_IIOP/Endpoint.h"

#include <cctype>
#include <cstdlib>

namespace YV_IIOP {

bool Endpoint::parse(const std::string& text, Endpoint& endpoint)
{
    std::string rest;
    if (text.compare(0, 7, "iiop://") == 0)
        rest = text.substr(7);
    else if (text.compare(0, 9, "giop:tcp:") == 0)
        rest = text.substr(9);
    else
        return false;
    if (!rest.empty() && rest.back() == '/')
        rest.pop_back();
    std::string host, port;
    if (!rest.empty() && rest[0] == '[') {
        const std::size_t close = rest.find(']');
        if (close == std::string::npos || (close + 1 < rest.size() && rest[close + 1] != ':'))
            return false;
        host = rest.substr(1, close - 1);
        if (close + 1 < rest.size())
            port = rest.substr(close + 2);
    } else {
        const std::size_t colon = rest.rfind(':');
        host = rest.substr(0, colon);
        if (colon != std::string::npos)
            port = rest.substr(colon + 1);
        if (host.find(':') != std::string::npos)
            return false;
    }
    if (port.size() > 5)
        return false;
    for (char c : port)
        if (!std::isdigit(static_cast<unsigned char>(c)))
            return false;
    const unsigned long n = port.empty() ? 0 : std::strtoul(port.c_str(), nullptr, 10);
    if (n > 65535)
        return false;
    endpoint.host = host;
    endpoint.port = static_cast<std::uint16_t>(n);
    return true;
}

std::string Endpoint::to_string() const
{
    const bool v6 = host.find(':') != std::string::npos;
    return "iiop://" + (v6 ? "[" + host + "]" : host) + ":" + std::to_string(port);
}

} // namespace YV_IIOP
