// The driver tests' fixture: a scratch directory in which the built yvidl
// binary runs, and checks of its messages.
#ifndef DRIVERTEST_H
#define DRIVERTEST_H

#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace drivertest {

inline std::string data(const std::string& name) { return std::string(YV_TEST_DATA_DIR) + "/" + name; }

inline std::string shell_quote(const std::string& s)
{
    std::string q = "'";
    for (char c : s) {
        if (c == '\'')
            q += "'\\''";
        else
            q += c;
    }
    return q + "'";
}

// A scratch directory that is the compiler's current directory.
class DriverTest : public ::testing::Test {
protected:
    void SetUp() override { m_dir = yvtest::make_temp_dir("driver"); }
    void TearDown() override { fs::remove_all(m_dir); }

    // Runs yvidl with `args` (each quoted) in the scratch directory; `env` is
    // put before the command as it is.
    yvtest::CommandResult yvidl(const std::vector<std::string>& args, const std::string& env = std::string())
    {
        return yvtest::run_command(env + (env.empty() ? "" : " ") + command(args), m_dir);
    }

    // The command line that runs yvidl with `args`, each quoted.
    static std::string command(const std::vector<std::string>& args)
    {
        std::string cmd = shell_quote(yvtest::bin_dir() + "/yvidl");
        for (const std::string& a : args)
            cmd += " " + shell_quote(a);
        return cmd;
    }

    // The names of the files in the scratch directory.
    std::set<std::string> outputs() const
    {
        std::set<std::string> names;
        for (const auto& e : fs::directory_iterator(m_dir))
            names.insert(e.path().filename().string());
        return names;
    }

    std::string m_dir;
};

using Names = std::set<std::string>;

inline std::vector<std::string> lines_of(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string l; std::getline(in, l);)
        lines.push_back(l);
    return lines;
}

// True when every line of `err` that names `file` has the form
// "<file>:<line>:<column>: error: <message>", and there is at least one.
inline ::testing::AssertionResult has_located_errors(const std::string& err, const std::string& file)
{
    int found = 0;
    for (const std::string& l : lines_of(err)) {
        std::size_t at = l.find(file + ":");
        if (at == std::string::npos || l.find(": error: ") == std::string::npos)
            continue;
        std::size_t p = at + file.size() + 1;
        auto digits = [&]() {
            std::size_t start = p;
            while (p < l.size() && std::isdigit(static_cast<unsigned char>(l[p])))
                ++p;
            return p > start;
        };
        if (!digits() || l[p++] != ':' || !digits() || l.compare(p, 9, ": error: ") != 0 || l.size() <= p + 9)
            return ::testing::AssertionFailure() << "badly formed error line: " << l;
        ++found;
    }
    if (found == 0)
        return ::testing::AssertionFailure() << "no error line for " << file << " in:\n" << err;
    return ::testing::AssertionSuccess();
}

} // namespace drivertest

using drivertest::data;
using drivertest::DriverTest;
using drivertest::has_located_errors;
using drivertest::lines_of;
using drivertest::Names;
using drivertest::shell_quote;

#endif
