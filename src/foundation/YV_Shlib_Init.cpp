#include "YV_Shlib_Init.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <mutex>

namespace {

struct Registry {
    std::mutex lock;
    std::vector<YV_Shlib_Init::Entry> entries;
};

// Function-local so that registration from any library's static objects
// finds it constructed, whatever the load order.
Registry& registry()
{
    static Registry r;
    return r;
}

const YV_Shlib_Init::Entry* find_entry(const std::vector<YV_Shlib_Init::Entry>& entries, const std::string& name)
{
    auto it = std::find_if(entries.begin(), entries.end(), [&](const YV_Shlib_Init::Entry& e) { return e.name == name; });
    return it == entries.end() ? nullptr : &*it;
}

} // namespace

void YV_global_default_exc_handler()
{
    std::cerr << "yvidl: fatal: unhandled exception while loading a library" << std::endl;
    std::abort();
}

YV_Shlib_Init::YV_Shlib_Init(const YV_Shlib_Description& self, const YV_Shlib_Dependency* deps, YV_Shlib_ExcHandler handler)
    : m_name(self.name ? self.name : "")
{
    try {
        Registry& r = registry();
        std::lock_guard<std::mutex> guard(r.lock);
        for (const YV_Shlib_Dependency* d = deps; d && d->name; ++d) {
            if (d->interface_level & YV_SHLIB_FOUNDATION_DEPENDENCY)
                continue;
            const Entry* e = find_entry(r.entries, d->name);
            if (!e)
                std::cerr << "yvidl: warning: library " << m_name << " needs " << d->name << " version "
                          << (d->version ? d->version : "?") << ", which is not loaded" << std::endl;
            else if (d->version && e->version != d->version)
                std::cerr << "yvidl: warning: library " << m_name << " needs " << d->name << " version " << d->version
                          << ", but version " << e->version << " is loaded" << std::endl;
        }
        r.entries.push_back(Entry{m_name, self.version ? self.version : ""});
    } catch (...) {
        if (handler)
            handler();
    }
}

YV_Shlib_Init::~YV_Shlib_Init()
{
    Registry& r = registry();
    std::lock_guard<std::mutex> guard(r.lock);
    auto it = std::find_if(r.entries.rbegin(), r.entries.rend(), [&](const Entry& e) { return e.name == m_name; });
    if (it != r.entries.rend())
        r.entries.erase(std::next(it).base());
}

std::vector<YV_Shlib_Init::Entry> YV_Shlib_Init::registered()
{
    Registry& r = registry();
    std::lock_guard<std::mutex> guard(r.lock);
    return r.entries;
}

const char* YV_Shlib_Init::version_of(const char* name)
{
    Registry& r = registry();
    std::lock_guard<std::mutex> guard(r.lock);
    const Entry* e = find_entry(r.entries, name ? name : "");
    return e ? e->version.c_str() : nullptr;
}
