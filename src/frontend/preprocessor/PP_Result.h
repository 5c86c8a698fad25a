// What preprocessing one IDL file gives: the text for the parser and the
// main file's own #include directives, and the files read.
#ifndef PP_RESULT_H
#define PP_RESULT_H

#include "PP_Include.h"

#include <string>
#include <vector>

struct PP_Result {
    // The preprocessed text: tokens on their source lines, line markers
    // `# <line> "<file>" [1|2]`, pass-through pragmas and back-end blocks
    // (see docs/preprocessor.md).
    std::string text;
    // The main file's own #include directives, in order, each once.
    std::vector<PP_Include> includes;
    // Every file read from disk, the main file first, then included files
    // in the order they were first found, each once, named by the path
    // under which it was found (what a dependency file lists).
    std::vector<std::string> files;
};

#endif
