#include "ObjectAddress.h"

#include "CdrReader.h"

#include <fstream>
#include <stdexcept>

namespace giop {

namespace {

std::vector<std::uint8_t> from_hex(const std::string& hex)
{
    if (hex.size() % 2)
        throw std::runtime_error("odd number of hex digits in an IOR");
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2)
        bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
    return bytes;
}

const std::uint32_t tag_internet_iop = 0;

} // namespace

ObjectAddress ObjectAddress::from_ior(const std::string& ior)
{
    if (ior.compare(0, 4, "IOR:") != 0)
        throw std::runtime_error("not an IOR: " + ior);
    const std::vector<std::uint8_t> bytes = from_hex(ior.substr(4));
    CdrReader in(bytes, false);
    in.set_little_endian(in.octet() & 1);
    in.string(); // repository id
    const std::uint32_t profiles = in.ulong();
    for (std::uint32_t p = 0; p < profiles; ++p) {
        const std::uint32_t tag = in.ulong();
        const std::vector<std::uint8_t> data = in.octets();
        if (tag != tag_internet_iop)
            continue;
        CdrReader profile(data, false);
        profile.set_little_endian(profile.octet() & 1);
        ObjectAddress address;
        address.major = profile.octet();
        address.minor = profile.octet();
        address.host = profile.string();
        address.port = profile.ushort();
        address.key = profile.octets();
        return address;
    }
    throw std::runtime_error("no IIOP profile in the IOR");
}

ObjectAddress ObjectAddress::from_file(const std::string& path)
{
    std::ifstream in(path);
    std::string ior;
    if (!std::getline(in, ior))
        throw std::runtime_error("cannot read " + path);
    return from_ior(ior);
}

} // namespace giop
