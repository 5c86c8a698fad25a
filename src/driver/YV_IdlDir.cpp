#include "YV_IdlDir.h"

#include "YV_Config.h"

#include <filesystem>
#include <system_error>

#ifndef YV_IDL_RELDIR
#define YV_IDL_RELDIR "../share/yvidl/idl"
#endif

namespace fs = std::filesystem;

std::string YV_IdlDir::find()
{
    const std::string exe_dir = YV_Config::executable_dir();
    if (exe_dir.empty())
        return std::string();
    std::error_code ec;
    const fs::path dir = fs::canonical(fs::path(exe_dir) / YV_IDL_RELDIR, ec);
    if (ec || !fs::is_directory(dir, ec))
        return std::string();
    return dir.string();
}
