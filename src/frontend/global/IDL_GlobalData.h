// What the front end hands to the back ends for one IDL file: the tree, the
// file names, and the files the main file includes.
#ifndef IDL_GLOBALDATA_H
#define IDL_GLOBALDATA_H

#include "AST_Root.h"
#include "UTL_String.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

// One file named by an #include directive of the main IDL file.
struct IDL_IncludedFile {
    // The name as written in the directive, with its quotes or angle
    // brackets: "bar.idl" or <omg/orb.idl>.
    UTL_String name;
    // 1 when the directive names the file between angle brackets (a system
    // IDL file, whose generated headers keep the standard extension),
    // 0 when it names it between double quotes.
    long flag;
    // True when the directive stands inside a body (a module's): the file's
    // declarations are then part of the main file where it stands.
    bool in_body = false;
    // For a directive at file scope: the number of the root's declarations
    // (of every file) read before it. 0 when it stands before them all, or
    // when the file it names added nothing (read before, its guard closed).
    std::size_t position = 0;
};

class IDL_GlobalData {
public:
    IDL_GlobalData(std::unique_ptr<AST_Root> root, std::string main_file, std::string prog_name);
    ~IDL_GlobalData();
    IDL_GlobalData(const IDL_GlobalData&) = delete;
    IDL_GlobalData& operator=(const IDL_GlobalData&) = delete;

    AST_Root* root() const { return m_root.get(); }
    // The main file's path as given on the command line.
    UTL_String* main_filename() { return &m_main_file; }
    // The main file's name without its directories: "foo.idl" for "a/b/foo.idl".
    UTL_String* stripped_filename() { return &m_stripped; }
    // The compiler's program name, for messages.
    const char* prog_name() const { return m_prog_name.c_str(); }

    // The files the main file includes directly, in directive order, each
    // once. (Files they include in turn are not listed.)
    const std::vector<IDL_IncludedFile>& included_files() const { return m_included; }
    long n_included_files() const { return static_cast<long>(m_included.size()); }
    void add_included_file(std::string written_name, long flag, bool in_body = false, std::size_t position = 0);

    // Every file read to build the tree: the main file, then the files
    // included at any depth, each once, as found (for dependency files).
    const std::vector<std::string>& files_read() const { return m_files_read; }
    void set_files_read(std::vector<std::string> files) { m_files_read = std::move(files); }

private:
    std::unique_ptr<AST_Root> m_root;
    UTL_String m_main_file;
    UTL_String m_stripped;
    std::string m_prog_name;
    std::vector<IDL_IncludedFile> m_included;
    std::vector<std::string> m_files_read;
};

#endif
