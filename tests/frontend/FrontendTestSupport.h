// Helpers of the front-end tests: parse IDL text (with extra files to
// include), capture the diagnostics, and print a tree as text.
#ifndef FRONTENDTESTSUPPORT_H
#define FRONTENDTESTSUPPORT_H

#include "IDL_GlobalData.h"
#include "IDL_Limits.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class AST_Decl;
class AST_Type;

namespace fetest {

struct Parsed {
    std::unique_ptr<IDL_GlobalData> data;
    long errors = 0;   // errors counted during the parse
    std::string err;   // what was written on the error stream
};

// Parses `text` as the main file `name`. `files` are written to a scratch
// directory that is the include directory.
Parsed parse(const std::string& text, const std::string& name = "main.idl",
             const std::vector<std::pair<std::string, std::string>>& files = {});
// Parses a file on disk with the given include directories.
Parsed parse_file(const std::string& path, const std::vector<std::string>& include_dirs);
// Parses `text` as main.idl under other limits than the defaults, with an
// include directory when `include_dir` is not empty.
Parsed parse_limited(const std::string& text, const IDL_Limits& limits, const std::string& include_dir = "");

// The tree as indented text: one line per declaration with its kind, name,
// properties, position (file name without directories) and repository id.
std::string dump(IDL_GlobalData& data);
// How a type is referred to in the dump: the scoped name of a named type,
// a spelled-out form of an anonymous one.
std::string type_text(AST_Type* t);
// The scoped name of a declaration ("M::I").
std::string scoped(AST_Decl* d);

// The declaration with the given scoped name ("M::I", "M::I::op"), searched
// through every module opening and including pending (forward-only) nodes;
// null when there is none.
AST_Decl* find(IDL_GlobalData& data, const std::string& scoped_name);

} // namespace fetest

#endif
