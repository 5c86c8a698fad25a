// Diagnostics of the front end: "file:line:column: error: message" (or
// "warning:") on the error stream, with the message texts of IDL_Messages.def.
#ifndef IDL_DIAGNOSTICS_H
#define IDL_DIAGNOSTICS_H

#include <initializer_list>
#include <string>

enum class IDL_Diag {
#define YV_DIAG(id, text) id,
#include "IDL_Messages.def"
#undef YV_DIAG
};

class IDL_Diagnostics {
public:
    // Reports an error and counts it (idl_error_count()).
    static void error(IDL_Diag id, const std::string& file, long line, long column,
                      std::initializer_list<std::string> args = {});
    // Reports a warning; warnings are not counted.
    static void warning(IDL_Diag id, const std::string& file, long line, long column,
                        std::initializer_list<std::string> args = {});
    // The message text with its arguments filled in.
    static std::string format(IDL_Diag id, std::initializer_list<std::string> args);
    // The text as the table holds it.
    static const char* text(IDL_Diag id);
};

#endif
