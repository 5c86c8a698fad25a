// Registration of loaded libraries with the foundation library.
//
// Every library of the compiler holds one static YV_Shlib_Init built from a
// description of itself and a null-terminated array of the libraries it
// depends on. At load the library is entered into the registry; a dependency
// that is not registered, or registered with another version, is reported
// as a warning on the error stream (never a failure). At unload the entry
// is removed again.
//
// The numeric words:
//   YV_Shlib_Flags::interface_level and YV_Shlib_Dependency::interface_level
//     hold the interface level as 0xMMmm (major, minor): 0x201 is level 2.1.
//     A dependency is satisfied by a library of the same major level and the
//     same or a higher minor level; a library registered without flags (or
//     with level 0) satisfies any level.
//     Bit 0x10000 marks a dependency on the foundation library itself, which
//     is always loaded first and so is never reported missing.
//   YV_Shlib_Flags::reserved is 0.
#ifndef YV_SHLIB_INIT_H
#define YV_SHLIB_INIT_H

#include <string>
#include <vector>

struct YV_Shlib_Flags {
    unsigned long interface_level;
    unsigned long reserved;
};

struct YV_Shlib_Description {
    const char* name;
    const char* version;
    const YV_Shlib_Flags* flags;
    const void* reserved;
};

struct YV_Shlib_Dependency {
    const char* name;      // null in the terminating record
    const char* version;   // null in the terminating record
    unsigned long interface_level;
};

constexpr unsigned long YV_SHLIB_FOUNDATION_DEPENDENCY = 0x10000UL;

// Called when a library's load-time code meets an exception it cannot handle.
using YV_Shlib_ExcHandler = void (*)();

// The default handler: writes a message on the error stream and aborts.
void YV_global_default_exc_handler();

class YV_Shlib_Init {
public:
    YV_Shlib_Init(const YV_Shlib_Description& self, const YV_Shlib_Dependency* deps, YV_Shlib_ExcHandler handler);
    ~YV_Shlib_Init();
    YV_Shlib_Init(const YV_Shlib_Init&) = delete;
    YV_Shlib_Init& operator=(const YV_Shlib_Init&) = delete;

    struct Entry {
        std::string name;
        std::string version;
        unsigned long interface_level; // 0 when the library gave no flags
    };
    // The registered libraries, in the order they were registered.
    static std::vector<Entry> registered();
    // The version a library registered with, or null when it is not
    // registered. The text stays valid while the library stays registered.
    static const char* version_of(const char* name);

private:
    std::string m_name;
};

#endif
