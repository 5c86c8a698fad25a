// Where the preprocessor's parts send their diagnostics. The reporter knows
// the file being read (its presumed name after #line) and counts errors.
#ifndef PP_REPORTER_H
#define PP_REPORTER_H

#include "IDL_Diagnostics.h"

#include <cstdint>
#include <initializer_list>
#include <string>

class PP_Reporter {
public:
    virtual ~PP_Reporter() = default;
    // `line` is the presumed line in the current file, `col` a byte column.
    virtual void error(IDL_Diag id, std::uint32_t line, std::uint32_t col,
                       std::initializer_list<std::string> args = {}) = 0;
    virtual void warning(IDL_Diag id, std::uint32_t line, std::uint32_t col,
                         std::initializer_list<std::string> args = {}) = 0;
    // The presumed name of the current file (for __FILE__).
    virtual const std::string& current_file() const = 0;
};

#endif
