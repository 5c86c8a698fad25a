// One #include directive of the main file, as the preprocessor found it.
#ifndef PP_INCLUDE_H
#define PP_INCLUDE_H

#include <string>

struct PP_Include {
    // The name as written, with its delimiters: "\"bar.idl\"" or
    // "<omg/orb.idl>" (after macro expansion, for a computed #include).
    std::string written;
    // 1 for <...>, 0 for "...".
    long flag = 0;
    // The file it was found as (its line markers name it so); empty when
    // it was not found.
    std::string path;
};

#endif
