#include "TestData.h"

#include "YV_TestSupport.h"

#include <sstream>
#include <stdexcept>

namespace orbtest {

std::vector<unsigned char> from_hex(const std::string& hex)
{
    if (hex.size() % 2 != 0)
        throw std::invalid_argument("odd number of hex digits");
    std::vector<unsigned char> octets(hex.size() / 2);
    for (std::size_t i = 0; i < octets.size(); ++i)
        octets[i] = static_cast<unsigned char>(std::stoi(hex.substr(2 * i, 2), nullptr, 16));
    return octets;
}

std::string to_hex(const unsigned char* data, std::size_t size)
{
    static const char digits[] = "0123456789abcdef";
    std::string hex;
    for (std::size_t i = 0; i < size; ++i) {
        hex += digits[data[i] >> 4];
        hex += digits[data[i] & 15];
    }
    return hex;
}

std::map<std::string, std::vector<std::string>> records(const std::string& file)
{
    std::istringstream in(yvtest::read_file(std::string(YV_TEST_DATA_DIR) + "/giop/" + file));
    std::map<std::string, std::vector<std::string>> result;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#')
            continue;
        std::istringstream fields(line);
        std::string name, field;
        fields >> name;
        std::vector<std::string>& values = result[name];
        while (fields >> field)
            values.push_back(field);
    }
    return result;
}

} // namespace orbtest
