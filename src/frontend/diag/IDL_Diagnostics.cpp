#include "IDL_Diagnostics.h"

#include "idl_msg_header.h"

#include <iostream>
#include <vector>

namespace {

const char* const kTexts[] = {
#define YV_DIAG(id, text) text,
#include "IDL_Messages.def"
#undef YV_DIAG
};

// Messages quote user text; keep a single line and a sane length.
std::string sanitize(const std::string& s)
{
    constexpr std::size_t kMax = 200;
    std::string out;
    for (char c : s.substr(0, kMax))
        out += (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) ? '?' : c;
    if (s.size() > kMax)
        out += "...";
    return out;
}

void report(const char* kind, IDL_Diag id, const std::string& file, long line, long column,
            std::initializer_list<std::string> args)
{
    std::cerr << file << ':' << line << ':' << column << ": " << kind << ": " << IDL_Diagnostics::format(id, args)
              << std::endl;
}

} // namespace

const char* IDL_Diagnostics::text(IDL_Diag id) { return kTexts[static_cast<int>(id)]; }

std::string IDL_Diagnostics::format(IDL_Diag id, std::initializer_list<std::string> args)
{
    std::vector<std::string> a;
    for (const std::string& s : args)
        a.push_back(sanitize(s));
    std::string out;
    for (const char* p = text(id); *p; ++p) {
        if (p[0] == '{' && p[1] >= '0' && p[1] <= '9' && p[2] == '}') {
            std::size_t i = static_cast<std::size_t>(p[1] - '0');
            if (i < a.size())
                out += a[i];
            p += 2;
        } else {
            out += *p;
        }
    }
    return out;
}

void IDL_Diagnostics::error(IDL_Diag id, const std::string& file, long line, long column,
                            std::initializer_list<std::string> args)
{
    report("error", id, file, line, column, args);
    idl_count_error();
}

void IDL_Diagnostics::warning(IDL_Diag id, const std::string& file, long line, long column,
                              std::initializer_list<std::string> args)
{
    report("warning", id, file, line, column, args);
}
