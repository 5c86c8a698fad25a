// Test data of the ORB's tests: octets in hexadecimal, and the recorded
// message files of data/giop (one record per line: a name and hex fields).
#ifndef YV_ORB_TESTDATA_H
#define YV_ORB_TESTDATA_H

#include <map>
#include <string>
#include <vector>

namespace orbtest {

std::vector<unsigned char> from_hex(const std::string& hex);
std::string to_hex(const unsigned char* data, std::size_t size);
inline std::string to_hex(const std::vector<unsigned char>& v) { return to_hex(v.data(), v.size()); }

// The records of data/giop/<file>: name -> the fields after it. Lines
// starting with '#' are comments.
std::map<std::string, std::vector<std::string>> records(const std::string& file);

} // namespace orbtest

#endif
