#include "YV_ORB/ObjectKey.h"

#include <algorithm>

namespace YV_ORB {

std::vector<CORBA::Octet> ObjectKey::transient_prefix(const Nonce& nonce, CORBA::ULong adapter_number)
{
    std::vector<CORBA::Octet> key;
    key.reserve(3 + nonce.size() + 4);
    key.push_back('Y');
    key.push_back('V');
    key.push_back('T');
    for (CORBA::Octet o : nonce)
        key.push_back(o);
    for (int shift = 24; shift >= 0; shift -= 8)
        key.push_back(static_cast<CORBA::Octet>(adapter_number >> shift));
    return key;
}

bool ObjectKey::persistent_prefix(const std::vector<std::string>& path, std::vector<CORBA::Octet>& prefix)
{
    if (path.size() > 255)
        return false;
    prefix = {'Y', 'V', 'P', static_cast<CORBA::Octet>(path.size())};
    for (const std::string& name : path) {
        if (name.find('\0') != std::string::npos)
            return false;
        prefix.insert(prefix.end(), name.begin(), name.end());
        prefix.push_back(0);
    }
    return true;
}

std::vector<CORBA::Octet> ObjectKey::encode() const
{
    std::vector<CORBA::Octet> key;
    if (persistent)
        persistent_prefix(path, key);
    else
        key = transient_prefix(nonce, adapter_number);
    key.insert(key.end(), object_id.begin(), object_id.end());
    return key;
}

bool ObjectKey::parse(const CORBA::Octet* key, std::size_t size, ObjectKey& parsed)
{
    if (size < 4 || key[0] != 'Y' || key[1] != 'V')
        return false;
    const CORBA::Octet* end = key + size;
    if (key[2] == 'T') {
        if (size < 3 + 8 + 4)
            return false;
        parsed.persistent = false;
        std::copy(key + 3, key + 11, parsed.nonce.begin());
        parsed.adapter_number = static_cast<CORBA::ULong>(key[11]) << 24 | static_cast<CORBA::ULong>(key[12]) << 16
                                | static_cast<CORBA::ULong>(key[13]) << 8 | key[14];
        parsed.path.clear();
        parsed.object_id.assign(key + 15, end);
        return true;
    }
    if (key[2] != 'P')
        return false;
    parsed.persistent = true;
    parsed.path.clear();
    const CORBA::Octet* p = key + 4;
    for (unsigned depth = key[3]; depth != 0; --depth) {
        const CORBA::Octet* nul = std::find(p, end, 0);
        if (nul == end)
            return false;
        parsed.path.emplace_back(p, nul);
        p = nul + 1;
    }
    parsed.object_id.assign(p, end);
    return true;
}

} // namespace YV_ORB
