// Helpers shared by the test programs: files, golden comparison, running
// the compiler.
#ifndef YV_TESTSUPPORT_H
#define YV_TESTSUPPORT_H

#include <string>

namespace yvtest {

std::string read_file(const std::string& path);
void write_file(const std::string& path, const std::string& text);
bool file_exists(const std::string& path);

// `s` written `n` times.
std::string repeat(const std::string& s, int n);
// `pattern` once for each number from `from` to `to` (excluded), with "@"
// standing for the number and "$" for the one before it.
std::string numbered(const std::string& pattern, int from, int to);

// A fresh empty directory under the system's temporary directory.
std::string make_temp_dir(const std::string& tag);

// Compares `actual` with the golden file at `path`. With the environment
// variable YV_UPDATE_GOLDEN=1 the golden file is (re)written instead and the
// comparison passes. Returns an empty string when they agree, else a
// message with the first differing line.
std::string compare_golden(const std::string& path, const std::string& actual);

struct CommandResult {
    int status = -1;       // exit status, or -1 when it did not exit normally
    std::string out;       // standard output
    std::string err;       // standard error
};

// Runs `command` through /bin/sh in directory `cwd` (empty: current).
CommandResult run_command(const std::string& command, const std::string& cwd = std::string());

// Paths compiled into the test programs.
std::string bin_dir();        // <build>/bin
std::string source_dir();     // the source tree's root

} // namespace yvtest

#endif
