// Finds and loads back-end plug-ins. The plug-in directory is, in this
// order: the environment variable YVIDL_PLUGIN_DIR, the configuration's
// plugin-dir (relative to the configuration file's directory when it is a
// relative path), the installed plug-in directory relative to the yvidl
// binary (YV_PLUGIN_RELDIR, ../lib/yvidl), else <directory of the yvidl
// binary>/../lib as in the build tree. Each back end is loaded once and
// kept until the loader is destroyed.
#ifndef YV_BACKENDLOADER_H
#define YV_BACKENDLOADER_H

#include "YV_Backend.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class YV_BackendLoader {
public:
    YV_BackendLoader();
    ~YV_BackendLoader();
    YV_BackendLoader(const YV_BackendLoader&) = delete;
    YV_BackendLoader& operator=(const YV_BackendLoader&) = delete;

    // The directory the loader looks in ("" means the system's search path).
    const std::string& plugin_dir() const { return m_dir; }
    static std::string find_plugin_dir();
    // The full path of a back end's library.
    std::string library_path(const YV_BackendInfo& info) const;

    // The loaded back end, or null with `error` set.
    YV_Backend* load(const YV_BackendInfo& info, std::string& error);
    // The back end if it is loaded already, else null.
    YV_Backend* loaded(const YV_BackendInfo& info) const;

private:
    std::string m_dir;
    std::map<std::string, std::unique_ptr<YV_Backend>> m_backends;
    // Switch names in load order, so that libraries are closed in reverse.
    std::vector<std::string> m_order;
};

#endif
