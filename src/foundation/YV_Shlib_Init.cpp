#include "YV_Shlib_Init.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <list>
#include <mutex>
#include <sstream>

namespace {

// A list, so that the text version_of hands out stays where it is while
// other libraries come and go.
struct Registry {
    std::mutex lock;
    std::list<YV_Shlib_Init::Entry> entries;
};

// Function-local so that registration from any library's static objects
// finds it constructed, whatever the load order.
Registry& registry()
{
    static Registry r;
    return r;
}

const YV_Shlib_Init::Entry* find_entry(const std::list<YV_Shlib_Init::Entry>& entries, const std::string& name)
{
    auto it = std::find_if(entries.begin(), entries.end(), [&](const YV_Shlib_Init::Entry& e) { return e.name == name; });
    return it == entries.end() ? nullptr : &*it;
}

unsigned long major_level(unsigned long level) { return (level >> 8) & 0xffUL; }
unsigned long minor_level(unsigned long level) { return level & 0xffUL; }

std::string level_text(unsigned long level)
{
    std::ostringstream s;
    s << major_level(level) << '.' << minor_level(level);
    return s.str();
}

// Whether a library registered at `have` serves a dependency on `need`.
bool level_satisfies(unsigned long have, unsigned long need)
{
    if (have == 0)
        return true;
    return major_level(have) == major_level(need) && minor_level(have) >= minor_level(need);
}

void warn(const std::string& library, const std::string& what)
{
    std::cerr << "yvidl: warning: library " << library << ' ' << what << std::endl;
}

} // namespace

void YV_global_default_exc_handler()
{
    std::cerr << "yvidl: fatal: unhandled exception while loading a library" << std::endl;
    std::abort();
}

YV_Shlib_Init::YV_Shlib_Init(const YV_Shlib_Description& self, const YV_Shlib_Dependency* deps, YV_Shlib_ExcHandler handler)
{
    try {
        m_name = self.name ? self.name : "";
        Registry& r = registry();
        std::lock_guard<std::mutex> guard(r.lock);
        for (const YV_Shlib_Dependency* d = deps; d && d->name; ++d) {
            if (d->interface_level & YV_SHLIB_FOUNDATION_DEPENDENCY)
                continue;
            const std::string wanted = std::string(d->name) + " version " + (d->version ? d->version : "?");
            const unsigned long need = d->interface_level & 0xffffUL;
            const Entry* e = find_entry(r.entries, d->name);
            if (!e)
                warn(m_name, "needs " + wanted + ", which is not loaded");
            else if (d->version && e->version != d->version)
                warn(m_name, "needs " + wanted + ", but version " + e->version + " is loaded");
            else if (!level_satisfies(e->interface_level, need))
                warn(m_name, "needs " + std::string(d->name) + " interface level " + level_text(need) +
                                 ", but level " + level_text(e->interface_level) + " is loaded");
        }
        r.entries.push_back(
            Entry{m_name, self.version ? self.version : "", self.flags ? self.flags->interface_level & 0xffffUL : 0UL});
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
    return std::vector<Entry>(r.entries.begin(), r.entries.end());
}

const char* YV_Shlib_Init::version_of(const char* name)
{
    Registry& r = registry();
    std::lock_guard<std::mutex> guard(r.lock);
    const Entry* e = find_entry(r.entries, name ? name : "");
    return e ? e->version.c_str() : nullptr;
}
