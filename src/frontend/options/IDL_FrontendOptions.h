// What the command line tells the front end: where includes are searched,
// the macros defined and undefined before the file is read, the compiler's
// name for messages, and the limits on what one input may cost.
#ifndef IDL_FRONTENDOPTIONS_H
#define IDL_FRONTENDOPTIONS_H

#include "IDL_Limits.h"

#include <string>
#include <utility>
#include <vector>

struct IDL_FrontendOptions {
    // Directories searched for #include, in order (-I).
    std::vector<std::string> include_dirs;
    // Macros defined on the command line (-DNAME or -DNAME=VALUE), in order;
    // a value-less definition has the value "1".
    std::vector<std::pair<std::string, std::string>> defines;
    // Macros undefined on the command line (-U), applied after the defines.
    std::vector<std::string> undefines;
    // The compiler's name, for messages and the global data.
    std::string prog_name = "yvidl";
    // What one input may make the front end do (-fmax-<name>=<n>).
    IDL_Limits limits;
};

#endif
