// Dependency files in the form gcc writes them (-MD): one make rule per
// compiled IDL file, naming the files it produced as targets and every IDL
// file it read as prerequisites,
//
//   bank.hh bank.cxx bankS.hh bankS.cxx: bank.idl <backslash, newline>
//    /usr/share/yvidl/idl/orb.idl
//
// so that Make and Ninja (depfile) rebuild exactly the outputs whose IDL
// changed. Names are quoted as make reads them: a blank (and the
// backslashes before it) is escaped with '\', '$' is written "$$", '#' is
// written "\#". -MT targets are written as given, -MQ targets quoted.
// With -MP every prerequisite but the first also gets an empty rule, so
// that a deleted include file does not stop make.
#ifndef YV_DEPFILE_H
#define YV_DEPFILE_H

#include <string>
#include <utility>
#include <vector>

class YV_DepFile {
public:
    // What the command line asked for.
    struct Options {
        bool enabled = false;         // -MD, or any of the options below
        std::string file;             // -MF: one file for every input
        std::vector<std::string> targets;  // -MT as given, -MQ already quoted
        bool phony = false;           // -MP
    };

    explicit YV_DepFile(Options options) : m_options(std::move(options)) {}

    bool enabled() const { return m_options.enabled; }

    // Adds the rule of one input: `outputs` are the files written for it,
    // `read` the IDL files read, the input first.
    void add(const std::string& input, const std::vector<std::string>& outputs,
             const std::vector<std::string>& read);

    // Writes the files collected so far; false with `error` set when one
    // cannot be written.
    bool write(std::string& error);

    // A file name quoted for a make rule.
    static std::string quote(const std::string& name);

private:
    // The file an input's rule goes to without -MF: <base>.d beside its
    // first output (in the current directory when there is none).
    static std::string default_path(const std::string& input, const std::vector<std::string>& outputs);

    Options m_options;
    // Rule texts by file, in the order the files were first named.
    std::vector<std::pair<std::string, std::string>> m_files;
};

#endif
