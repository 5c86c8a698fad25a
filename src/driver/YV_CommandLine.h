// The driver's command line, taken apart:
//   yvidl [options] file.idl...
// Front-end options (-I, -D, -U, -fmax-<limit>=<n>), dependency files
// (-MD, -MF, -MT, -MQ, -MP), the mode switches (-E, -h/--help, --print-idl-dir,
// --version), the back-end switches (-<backend>[:<options>]) in the order
// given, and the IDL files. Problems are collected, never thrown.
#ifndef YV_COMMANDLINE_H
#define YV_COMMANDLINE_H

#include "IDL_Frontend.h"
#include "YV_DepFile.h"

#include <optional>
#include <string>
#include <vector>

class YV_BackendInfo;

class YV_CommandLine {
public:
    // One back-end switch: -poa:-xTIE:-p3 selects "poa" with the options
    // "-xTIE:-p3" (the text after the first ':'); -poa alone has no options.
    struct BackendSwitch {
        const YV_BackendInfo* backend;
        std::optional<std::string> options;

        // The text handed to the back end: null when the switch has no ':'.
        const char* options_text() const { return options ? options->c_str() : nullptr; }
    };

    // Reads argv[1] .. argv[argc-1].
    static YV_CommandLine parse(int argc, const char* const* argv);

    const IDL_FrontendOptions& frontend_options() const { return m_frontend; }
    const std::vector<BackendSwitch>& backends() const { return m_backends; }
    const std::vector<std::string>& files() const { return m_files; }
    bool preprocess_only() const { return m_preprocess_only; }
    bool help() const { return m_help; }
    bool version() const { return m_version; }
    bool print_idl_dir() const { return m_print_idl_dir; }
    // -MD, -MF, -MT, -MQ, -MP.
    const YV_DepFile::Options& dependency_options() const { return m_deps; }
    // Messages for unknown or incomplete options, in command-line order.
    const std::vector<std::string>& errors() const { return m_errors; }

private:
    // Handles one argument that begins with '-'; may consume the next one
    // (-I <dir>). `i` is advanced past whatever was used.
    void parse_option(int argc, const char* const* argv, int& i);
    // The value of -I, -D, -U (or, with `name_length` 3, -MF, -MT, -MQ):
    // the rest of the argument, else the next argument. Null (with an
    // error noted) when there is neither.
    const char* option_value(int argc, const char* const* argv, int& i, const char* what,
                             std::size_t name_length = 2);
    // -MD, -MF, -MT, -MQ, -MP; false for any other -M option.
    bool parse_dependency_option(int argc, const char* const* argv, int& i);
    void add_define(const std::string& text);
    void add_undefine(const std::string& name);
    bool parse_backend_switch(const std::string& arg);
    // -fmax-<name>=<n>: sets one of the front end's limits.
    void parse_limit(const std::string& arg);

    IDL_FrontendOptions m_frontend;
    std::vector<BackendSwitch> m_backends;
    std::vector<std::string> m_files;
    bool m_preprocess_only = false;
    bool m_help = false;
    bool m_version = false;
    bool m_print_idl_dir = false;
    YV_DepFile::Options m_deps;
    std::vector<std::string> m_errors;
};

#endif
