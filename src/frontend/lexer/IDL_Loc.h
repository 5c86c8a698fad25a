// A position in the IDL text for diagnostics: file, line and column.
#ifndef IDL_LOC_H
#define IDL_LOC_H

#include "UTL_String.h"

struct IDL_Loc {
    // The file the position lies in; the lexer's file table owns it and
    // outlives every position.
    const UTL_String* file = nullptr;
    long line = 0;
    long column = 0;

    const std::string& file_name() const
    {
        static const std::string none("<unknown>");
        return file ? file->str() : none;
    }
};

#endif
