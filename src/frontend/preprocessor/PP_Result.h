// What preprocessing one IDL file gives: the text for the parser and the
// main file's own #include directives.
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
};

#endif
