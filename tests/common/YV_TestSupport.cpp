#include "YV_TestSupport.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

namespace yvtest {

std::string read_file(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void write_file(const std::string& path, const std::string& text)
{
    std::filesystem::path p(path);
    if (p.has_parent_path())
        std::filesystem::create_directories(p.parent_path());
    std::ofstream out(path, std::ios::binary);
    out << text;
}

bool file_exists(const std::string& path) { return std::filesystem::exists(path); }

std::string repeat(const std::string& s, int n)
{
    std::string out;
    out.reserve(s.size() * static_cast<std::size_t>(n > 0 ? n : 0));
    for (int i = 0; i < n; ++i)
        out += s;
    return out;
}

std::string numbered(const std::string& pattern, int from, int to)
{
    std::string out;
    for (int i = from; i < to; ++i) {
        std::string line = pattern;
        for (std::size_t at; (at = line.find('@')) != std::string::npos;)
            line.replace(at, 1, std::to_string(i));
        for (std::size_t at; (at = line.find('$')) != std::string::npos;)
            line.replace(at, 1, std::to_string(i - 1));
        out += line;
    }
    return out;
}

std::string make_temp_dir(const std::string& tag)
{
    std::string pattern = (std::filesystem::temp_directory_path() / ("yvtest-" + tag + "-XXXXXX")).string();
    if (!mkdtemp(pattern.data()))
        return std::string();
    return pattern;
}

std::string compare_golden(const std::string& path, const std::string& actual)
{
    const char* update = std::getenv("YV_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        write_file(path, actual);
        return std::string();
    }
    if (!file_exists(path))
        return "golden file missing: " + path + " (run with YV_UPDATE_GOLDEN=1 to create it)";
    std::string expected = read_file(path);
    if (expected == actual)
        return std::string();
    std::istringstream e(expected), a(actual);
    std::string el, al;
    for (int line = 1;; ++line) {
        bool he = static_cast<bool>(std::getline(e, el));
        bool ha = static_cast<bool>(std::getline(a, al));
        if (!he && !ha)
            return path + ": outputs differ in line ends";
        if (!he || !ha || el != al)
            return path + ":" + std::to_string(line) + ": expected [" + (he ? el : "<end>") + "] got [" +
                   (ha ? al : "<end>") + "]";
    }
}

CommandResult run_command(const std::string& command, const std::string& cwd)
{
    CommandResult r;
    std::string dir = make_temp_dir("cmd");
    std::string out = dir + "/out", err = dir + "/err";
    std::string full = (cwd.empty() ? std::string() : "cd '" + cwd + "' && ") + "(" + command + ") >'" + out +
                       "' 2>'" + err + "' </dev/null";
    int status = std::system(full.c_str());
    r.status = (status != -1 && WIFEXITED(status)) ? WEXITSTATUS(status) : -1;
    r.out = read_file(out);
    r.err = read_file(err);
    std::filesystem::remove_all(dir);
    return r;
}

std::string bin_dir() { return YV_BIN_DIR; }
std::string source_dir() { return YV_SOURCE_DIR; }

} // namespace yvtest
