// One file's text as read once for the whole run, and what was learnt
// about it while reading it.
#ifndef PP_FILEENTRY_H
#define PP_FILEENTRY_H

#include <cstddef>
#include <string>
#include <string_view>

struct PP_FileEntry {
    static constexpr std::size_t kNoBadByte = std::string::npos;

    std::string text;
    // Offset of the first byte that has no place in a text file (NUL or
    // another control character), or kNoBadByte.
    std::size_t bad_byte = kNoBadByte;
    bool bad_byte_reported = false;
    // The include-guard macro, once a reading has shown the guard shape.
    std::string guard;
    // Marked by #pragma once.
    bool once = false;

    // The text to tokenize: without a UTF-8 byte order mark.
    std::string_view body() const
    {
        std::string_view t = text;
        if (t.size() >= 3 && t.compare(0, 3, "\xEF\xBB\xBF") == 0)
            t.remove_prefix(3);
        return t;
    }
};

#endif
