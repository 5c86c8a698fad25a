// A line of the preprocessed text that is not IDL proper but changes how the
// declarations after it are read: a pragma, or entering or leaving an
// included file (from the line markers). The parser handles each one when it
// reaches the token the directive stands before.
#ifndef IDL_DIRECTIVE_H
#define IDL_DIRECTIVE_H

#include "IDL_Loc.h"

#include <cstddef>
#include <string>

struct IDL_Directive {
    enum Kind {
        Prefix,     // #pragma prefix "arg"
        Id,         // #pragma ID name "arg"
        Version,    // #pragma version name arg
        FileEnter,  // a line marker with flag 1
        FileLeave   // a line marker with flag 2
    };

    Kind kind = Prefix;
    // The scoped name an ID or version pragma is about, as written.
    std::string name;
    // The prefix, the repository id or the version.
    std::string arg;
    IDL_Loc loc;
    // Index of the first token after the directive.
    std::size_t before = 0;
};

#endif
