// The decoded value of a character or string literal, or the text of a
// back-end block. Wide characters and strings are held as UTF-8.
#ifndef IDL_LITERAL_H
#define IDL_LITERAL_H

#include <cstdint>
#include <string>

struct IDL_Literal {
    std::string text;
    // The character code of a character literal.
    std::uint32_t code = 0;
};

#endif
