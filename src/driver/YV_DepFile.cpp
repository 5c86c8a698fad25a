#include "YV_DepFile.h"

#include "YV_OutputFile.h"

#include <algorithm>
#include <utility>

std::string YV_DepFile::quote(const std::string& name)
{
    std::string out;
    out.reserve(name.size());
    std::size_t backslashes = 0;
    for (char c : name) {
        switch (c) {
        case ' ':
        case '\t':
            // Make reads 2N+1 backslashes before a blank as N backslashes
            // and the blank.
            out.append(backslashes + 1, '\\');
            break;
        case '$':
            out += '$';
            break;
        case '#':
            out += '\\';
            break;
        default:
            break;
        }
        backslashes = c == '\\' ? backslashes + 1 : 0;
        out += c;
    }
    return out;
}

std::string YV_DepFile::default_path(const std::string& input, const std::vector<std::string>& outputs)
{
    std::string dir;
    if (!outputs.empty()) {
        const std::size_t slash = outputs.front().rfind('/');
        if (slash != std::string::npos)
            dir = outputs.front().substr(0, slash + 1);
    }
    const std::size_t slash = input.rfind('/');
    std::string base = slash == std::string::npos ? input : input.substr(slash + 1);
    const std::size_t dot = base.rfind('.');
    if (dot != std::string::npos && dot != 0)
        base.erase(dot);
    return dir + base + ".d";
}

void YV_DepFile::add(const std::string& input, const std::vector<std::string>& outputs,
                     const std::vector<std::string>& read)
{
    const std::string path = m_options.file.empty() ? default_path(input, outputs) : m_options.file;
    // The rule never replaces a file it names.
    for (const std::string& r : read)
        YV_OutputFile::protect(r);

    std::string targets;
    auto add_target = [&targets](const std::string& t) {
        if (!targets.empty())
            targets += ' ';
        targets += t;
    };
    if (!m_options.targets.empty()) {
        for (const std::string& t : m_options.targets)
            add_target(t);
    } else if (!outputs.empty()) {
        for (const std::string& o : outputs)
            add_target(quote(o));
    } else {
        // Checked only: the rule stands for the dependency file itself.
        add_target(quote(path));
    }

    std::string rule = targets + ":";
    for (std::size_t i = 0; i < read.size(); ++i)
        rule += (i == 0 ? " " : " \\\n ") + quote(read[i]);
    rule += '\n';
    if (m_options.phony)
        for (std::size_t i = 1; i < read.size(); ++i)
            rule += '\n' + quote(read[i]) + ":\n";

    auto it = std::find_if(m_files.begin(), m_files.end(), [&](const auto& f) { return f.first == path; });
    if (it == m_files.end())
        m_files.emplace_back(path, std::move(rule));
    else
        it->second += rule;
}

bool YV_DepFile::write(std::string& error)
{
    for (const auto& [path, text] : m_files) {
        YV_OutputFile out;
        out.open(path);
        if (out)
            out << text;
        if (!out || !out.commit()) {
            error = "cannot write " + path + ": " + (out.error().empty() ? std::string("write failed") : out.error());
            return false;
        }
    }
    m_files.clear();
    return true;
}
