// A position in the IDL text for diagnostics: file, line and column.
#ifndef IDL_LOC_H
#define IDL_LOC_H

#include "UTL_String.h"

#include <memory>

struct IDL_Loc {
    // The file the position lies in, shared by every node and token of it.
    std::shared_ptr<UTL_String> file;
    long line = 0;
    long column = 0;

    const std::string& file_name() const
    {
        static const std::string none("<unknown>");
        return file ? file->str() : none;
    }
};

#endif
