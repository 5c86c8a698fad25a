#include "CdrVectors.hh"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

namespace {

std::map<std::string, Octets> load()
{
    std::map<std::string, Octets> vectors;
    std::ifstream in(YV_TEST_DATA_DIR "/cdr_vectors.txt");
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream fields(line);
        std::string name, order, hex;
        fields >> name >> order >> hex;
        Octets bytes;
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            bytes.push_back(static_cast<unsigned char>(std::stoul(hex.substr(i, 2), nullptr, 16)));
        vectors[name + " " + order] = bytes;
    }
    return vectors;
}

} // namespace

const Octets& cdr_vector(const std::string& name, bool little)
{
    static const std::map<std::string, Octets> vectors = load();
    static const Octets none;
    auto found = vectors.find(name + (little ? " le" : " be"));
    EXPECT_NE(found, vectors.end()) << "no vector " << name;
    return found != vectors.end() ? found->second : none;
}

std::string differences_beyond_padding(const Octets& ours, const Octets& theirs)
{
    if (ours.size() != theirs.size())
        return "sizes " + std::to_string(ours.size()) + " and " + std::to_string(theirs.size());
    for (std::size_t i = 0; i < ours.size(); ++i)
        if (ours[i] != theirs[i] && ours[i] != 0)
            return "octet " + std::to_string(i);
    return "";
}
