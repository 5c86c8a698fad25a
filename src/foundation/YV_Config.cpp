#include "YV_Config.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <vector>

#ifdef __linux__
#include <unistd.h>
#endif

namespace {

std::string trim(const std::string& s)
{
    const char* blanks = " \t\r";
    std::size_t b = s.find_first_not_of(blanks);
    if (b == std::string::npos)
        return std::string();
    std::size_t e = s.find_last_not_of(blanks);
    return s.substr(b, e - b + 1);
}

} // namespace

YV_Config YV_Config::parse(const std::string& text)
{
    YV_Config cfg;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) {
        std::string t = trim(line);
        if (t.empty() || t[0] == '#')
            continue;
        std::size_t eq = t.find('=');
        if (eq == std::string::npos)
            continue;
        std::string key = trim(t.substr(0, eq));
        if (!key.empty())
            cfg.m_values[key] = trim(t.substr(eq + 1));
    }
    return cfg;
}

std::optional<YV_Config> YV_Config::load(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::ostringstream text;
    text << in.rdbuf();
    return parse(text.str());
}

std::string YV_Config::executable_dir()
{
#ifdef __linux__
    std::vector<char> buf(4096);
    ssize_t n = readlink("/proc/self/exe", buf.data(), buf.size() - 1);
    if (n > 0) {
        std::string exe(buf.data(), static_cast<std::size_t>(n));
        std::size_t slash = exe.rfind('/');
        return slash == std::string::npos ? std::string() : exe.substr(0, slash);
    }
#endif
    return std::string();
}

std::string YV_Config::default_path()
{
    if (const char* env = std::getenv("YVIDL_CONFIG"))
        return env;
    std::string dir = executable_dir();
    return dir.empty() ? std::string("yvidl.cfg") : dir + "/yvidl.cfg";
}

const YV_Config& YV_Config::current()
{
    static const YV_Config cfg = load(default_path()).value_or(YV_Config());
    return cfg;
}

const std::string* YV_Config::get(const std::string& key) const
{
    auto it = m_values.find(key);
    return it == m_values.end() ? nullptr : &it->second;
}
