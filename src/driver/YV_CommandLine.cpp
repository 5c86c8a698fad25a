#include "YV_CommandLine.h"

#include "YV_BackendInfo.h"

#include <cctype>
#include <cstring>

namespace {

bool is_identifier(const std::string& s)
{
    if (s.empty() || std::isdigit(static_cast<unsigned char>(s[0])))
        return false;
    for (char c : s)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_')
            return false;
    return true;
}

// Long arguments are cut in messages so that a stray megabyte of text does
// not end up on the terminal.
std::string quoted(const std::string& arg)
{
    const std::size_t limit = 64;
    return "'" + (arg.size() > limit ? arg.substr(0, limit) + "..." : arg) + "'";
}

} // namespace

YV_CommandLine YV_CommandLine::parse(int argc, const char* const* argv)
{
    YV_CommandLine cl;
    bool files_only = false;
    for (int i = 1; i < argc; ++i) {
        const char* arg = argv[i] ? argv[i] : "";
        if (files_only || arg[0] != '-') {
            cl.m_files.emplace_back(arg);
        } else if (std::strcmp(arg, "--") == 0) {
            files_only = true;
        } else {
            cl.parse_option(argc, argv, i);
        }
    }
    return cl;
}

void YV_CommandLine::parse_option(int argc, const char* const* argv, int& i)
{
    const std::string arg = argv[i];
    if (arg == "-h" || arg == "--help") {
        m_help = true;
    } else if (arg == "--version") {
        m_version = true;
    } else if (arg == "-E") {
        m_preprocess_only = true;
    } else if (arg == "--print-idl-dir") {
        m_print_idl_dir = true;
    } else if (arg.compare(0, 2, "-M") == 0 && parse_dependency_option(argc, argv, i)) {
    } else if (arg.compare(0, 2, "-I") == 0) {
        if (const char* dir = option_value(argc, argv, i, "a directory"))
            m_frontend.include_dirs.emplace_back(dir);
    } else if (arg.compare(0, 2, "-D") == 0) {
        if (const char* def = option_value(argc, argv, i, "a macro name"))
            add_define(def);
    } else if (arg.compare(0, 2, "-U") == 0) {
        if (const char* name = option_value(argc, argv, i, "a macro name"))
            add_undefine(name);
    } else if (arg.compare(0, 6, "-fmax-") == 0) {
        parse_limit(arg);
    } else if (!parse_backend_switch(arg)) {
        m_errors.push_back("unknown option " + quoted(arg) + " (see --help)");
    }
}

const char* YV_CommandLine::option_value(int argc, const char* const* argv, int& i, const char* what,
                                         std::size_t name_length)
{
    const char* arg = argv[i];
    if (arg[name_length] != '\0')
        return arg + name_length;
    if (i + 1 < argc && argv[i + 1])
        return argv[++i];
    m_errors.push_back("option " + std::string(arg) + " needs " + what);
    return nullptr;
}

void YV_CommandLine::add_define(const std::string& text)
{
    const std::size_t eq = text.find('=');
    const std::string name = text.substr(0, eq);
    if (!is_identifier(name)) {
        m_errors.push_back("invalid macro name " + quoted(name) + " in -D");
        return;
    }
    m_frontend.defines.emplace_back(name, eq == std::string::npos ? std::string("1") : text.substr(eq + 1));
}

void YV_CommandLine::add_undefine(const std::string& name)
{
    if (!is_identifier(name)) {
        m_errors.push_back("invalid macro name " + quoted(name) + " in -U");
        return;
    }
    m_frontend.undefines.push_back(name);
}

void YV_CommandLine::parse_limit(const std::string& arg)
{
    const std::size_t eq = arg.find('=');
    const std::string name = arg.substr(6, eq == std::string::npos ? std::string::npos : eq - 6);
    const std::string value = eq == std::string::npos ? std::string() : arg.substr(eq + 1);
    IDL_Limits probe;
    if (!probe.set(name, 1)) {
        m_errors.push_back("unknown limit " + quoted(arg) + " (see --help)");
        return;
    }
    // A positive decimal number; more than any machine could reach is
    // the same as no limit, so the digits are capped, not rejected.
    std::size_t n = 0;
    bool number = !value.empty() && value.size() <= 30;
    for (char c : value) {
        if (c < '0' || c > '9') {
            number = false;
            break;
        }
        const std::size_t digit = static_cast<std::size_t>(c - '0');
        n = n > (static_cast<std::size_t>(-1) - digit) / 10 ? static_cast<std::size_t>(-1) : n * 10 + digit;
    }
    if (!number || n == 0) {
        m_errors.push_back("option " + quoted(arg) + " needs a positive number after '='");
        return;
    }
    m_frontend.limits.set(name, n);
}

bool YV_CommandLine::parse_dependency_option(int argc, const char* const* argv, int& i)
{
    const std::string name = std::string(argv[i]).substr(0, 3);
    if (name == "-MD" || name == "-MP") {
        if (argv[i][3] != '\0')
            return false;
        (name == "-MP" ? m_deps.phony : m_deps.enabled) = true;
    } else if (name == "-MF" || name == "-MT" || name == "-MQ") {
        const char* value = option_value(argc, argv, i, name == "-MF" ? "a file name" : "a target", 3);
        if (!value)
            return true;
        if (*value == '\0') {
            m_errors.push_back("option " + name + " needs " + (name == "-MF" ? "a file name" : "a target"));
            return true;
        }
        if (name == "-MF")
            m_deps.file = value;
        else
            m_deps.targets.push_back(name == "-MT" ? std::string(value) : YV_DepFile::quote(value));
    } else {
        return false;
    }
    // Each of them asks for a dependency file.
    m_deps.enabled = true;
    return true;
}

bool YV_CommandLine::parse_backend_switch(const std::string& arg)
{
    const std::size_t colon = arg.find(':');
    const YV_BackendInfo* backend = YV_BackendInfo::find(arg.substr(1, colon == std::string::npos ? colon : colon - 1));
    if (!backend)
        return false;
    BackendSwitch sw{backend, std::nullopt};
    if (colon != std::string::npos)
        sw.options = arg.substr(colon + 1);
    m_backends.push_back(std::move(sw));
    return true;
}
