// One back-end plug-in library, loaded with dlopen. The object owns the
// library handle and closes it when destroyed; the generator belongs to the
// library and lives as long as it stays loaded.
#ifndef YV_BACKEND_H
#define YV_BACKEND_H

#include <iosfwd>
#include <memory>
#include <string>

class CodeGenerator;
class YV_BackendInfo;

class YV_Backend {
public:
    // Loads `path` and looks up the entry points `info` names. On failure
    // the result is null and `error` tells what went wrong (path and the
    // loader's message).
    static std::unique_ptr<YV_Backend> open(const YV_BackendInfo& info, const std::string& path, std::string& error);
    ~YV_Backend();
    YV_Backend(const YV_Backend&) = delete;
    YV_Backend& operator=(const YV_Backend&) = delete;

    const YV_BackendInfo& info() const { return m_info; }
    const std::string& path() const { return m_path; }

    // The back end's generator, from its init entry point (asked once).
    CodeGenerator* generator();
    // Calls the usage entry point with everything it writes on std::cerr
    // sent to `out` instead.
    void print_usage(std::ostream& out) const;
    // Any other symbol of the library or of the libraries it depends on;
    // null when there is none.
    void* symbol(const char* name) const;

private:
    using InitFunction = CodeGenerator* (*)();
    using UsageFunction = void (*)();

    YV_Backend(const YV_BackendInfo& info, std::string path, void* handle);

    const YV_BackendInfo& m_info;
    std::string m_path;
    void* m_handle;   // from dlopen; dlclose'd by the destructor
    InitFunction m_init = nullptr;
    UsageFunction m_usage = nullptr;
    CodeGenerator* m_generator = nullptr;
};

#endif
