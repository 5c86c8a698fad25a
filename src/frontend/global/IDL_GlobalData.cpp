#include "IDL_GlobalData.h"

#include <algorithm>

namespace {

std::string strip_directories(const std::string& path)
{
    std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

} // namespace

IDL_GlobalData::IDL_GlobalData(std::unique_ptr<AST_Root> root, std::string main_file, std::string prog_name)
    : m_root(std::move(root)), m_main_file(main_file), m_stripped(strip_directories(main_file)), m_prog_name(std::move(prog_name))
{
}

IDL_GlobalData::~IDL_GlobalData() = default;

void IDL_GlobalData::add_included_file(std::string written_name, long flag, bool in_body, std::size_t position)
{
    auto same = [&](const IDL_IncludedFile& f) { return f.name.str() == written_name; };
    if (std::none_of(m_included.begin(), m_included.end(), same))
        m_included.push_back(IDL_IncludedFile{UTL_String(std::move(written_name)), flag, in_body, position});
}
