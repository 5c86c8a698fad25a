// The front end's entry: preprocess, parse and check one IDL file.
#ifndef IDL_FRONTEND_H
#define IDL_FRONTEND_H

#include "IDL_FrontendOptions.h"
#include "IDL_GlobalData.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class IDL_Frontend {
public:
    explicit IDL_Frontend(IDL_FrontendOptions options) : m_options(std::move(options)) {}

    // Parses and checks the file. Diagnostics go to the error stream as
    // "file:line:column: error: message"; the result is null when any error
    // was reported, and every error is counted (idl_error_count()).
    std::unique_ptr<IDL_GlobalData> parse_file(const std::string& path);
    // The same for a text held in memory, reported under `file_name`;
    // includes are searched in the include directories only.
    std::unique_ptr<IDL_GlobalData> parse_text(const std::string& file_name, const std::string& text);
    // Writes the preprocessed text of the file (for -E); false on errors.
    bool preprocess_file(const std::string& path, std::ostream& out);

private:
    IDL_FrontendOptions m_options;
};

#endif
