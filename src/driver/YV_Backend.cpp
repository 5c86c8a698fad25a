#include "YV_Backend.h"

#include "YV_BackendInfo.h"
#include "YV_StreamRedirect.h"

#include <dlfcn.h>

#include <iostream>

namespace {

std::string last_dl_error()
{
    const char* e = dlerror();
    return e ? e : "unknown error";
}

} // namespace

YV_Backend::YV_Backend(const YV_BackendInfo& info, std::string path, void* handle)
    : m_info(info), m_path(std::move(path)), m_handle(handle)
{
}

std::unique_ptr<YV_Backend> YV_Backend::open(const YV_BackendInfo& info, const std::string& path, std::string& error)
{
    dlerror();
    // RTLD_LOCAL: the plug-in's own symbols stay private to it; the libraries
    // it shares with the driver (front end, foundation) are already loaded
    // and are found by their names through the plug-in's RUNPATH.
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        error = "cannot load back end -" + info.switch_name + " from " + path + ": " + last_dl_error();
        return nullptr;
    }
    std::unique_ptr<YV_Backend> backend(new YV_Backend(info, path, handle));
    void* init = backend->symbol(info.init_symbol.c_str());
    void* usage = backend->symbol(info.usage_symbol.c_str());
    if (!init || !usage) {
        const std::string& missing = init ? info.usage_symbol : info.init_symbol;
        dlerror();
        dlsym(handle, missing.c_str());
        error = "back end -" + info.switch_name + ": library " + path + " has no entry point " + missing + ": " +
                last_dl_error();
        return nullptr;
    }
    // The entry points are plain C functions; dlsym hands them out as
    // object pointers, which POSIX lets us convert back.
    backend->m_init = reinterpret_cast<InitFunction>(init);
    backend->m_usage = reinterpret_cast<UsageFunction>(usage);
    return backend;
}

YV_Backend::~YV_Backend() { dlclose(m_handle); }

CodeGenerator* YV_Backend::generator()
{
    if (!m_generator)
        m_generator = m_init();
    return m_generator;
}

void YV_Backend::print_usage(std::ostream& out) const
{
    YV_StreamRedirect redirect(std::cerr, out);
    m_usage();
}

void* YV_Backend::symbol(const char* name) const
{
    dlerror();
    return dlsym(m_handle, name);
}
