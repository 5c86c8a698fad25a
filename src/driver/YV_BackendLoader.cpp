#include "YV_BackendLoader.h"

#include "YV_BackendInfo.h"
#include "YV_Config.h"

#include <cstdlib>
#include <filesystem>

#ifndef YV_PLUGIN_RELDIR
#define YV_PLUGIN_RELDIR "../lib/yvidl"
#endif

namespace fs = std::filesystem;

YV_BackendLoader::YV_BackendLoader() : m_dir(find_plugin_dir()) {}

YV_BackendLoader::~YV_BackendLoader()
{
    // A plug-in may depend on a library loaded earlier; close the later one
    // first.
    for (auto it = m_order.rbegin(); it != m_order.rend(); ++it)
        m_backends.erase(*it);
}

std::string YV_BackendLoader::find_plugin_dir()
{
    const char* env = std::getenv("YVIDL_PLUGIN_DIR");
    if (env && *env)
        return env;
    if (const std::string* configured = YV_Config::current().get("plugin-dir")) {
        fs::path dir(*configured);
        if (dir.is_relative())
            dir = fs::path(YV_Config::default_path()).parent_path() / dir;
        return dir.lexically_normal().string();
    }
    const std::string exe_dir = YV_Config::executable_dir();
    if (exe_dir.empty())
        return std::string();
    // Installed: the plug-ins' own directory below the library directory;
    // in the build tree: <build>/lib.
    std::error_code ec;
    const fs::path installed = (fs::path(exe_dir) / YV_PLUGIN_RELDIR).lexically_normal();
    if (fs::is_directory(installed, ec))
        return installed.string();
    return (fs::path(exe_dir).parent_path() / "lib").lexically_normal().string();
}

std::string YV_BackendLoader::library_path(const YV_BackendInfo& info) const
{
    return m_dir.empty() ? info.library : (fs::path(m_dir) / info.library).string();
}

YV_Backend* YV_BackendLoader::load(const YV_BackendInfo& info, std::string& error)
{
    if (YV_Backend* b = loaded(info))
        return b;
    std::unique_ptr<YV_Backend> backend = YV_Backend::open(info, library_path(info), error);
    if (!backend)
        return nullptr;
    YV_Backend* result = backend.get();
    m_backends.emplace(info.switch_name, std::move(backend));
    m_order.push_back(info.switch_name);
    return result;
}

YV_Backend* YV_BackendLoader::loaded(const YV_BackendInfo& info) const
{
    auto it = m_backends.find(info.switch_name);
    return it == m_backends.end() ? nullptr : it->second.get();
}
