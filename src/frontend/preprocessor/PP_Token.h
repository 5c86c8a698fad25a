// One preprocessing token: a view of its spelling plus where it came from.
// Spellings point into a file's text (kept for the whole run) or into the
// spelling arena (pasted and stringized tokens, spellings cleaned of
// backslash-newlines); a token never owns memory, so copying one is cheap.
#ifndef PP_TOKEN_H
#define PP_TOKEN_H

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

struct PP_Token {
    enum Kind : std::uint8_t {
        Identifier,
        Number,      // a preprocessing number: 12, 0x1f, 1.5e+3, 08abc
        String,      // "..." or L"..."
        CharLit,     // '...' or L'...'
        Punct,       // operators and punctuators
        Other,       // any other single character
        HeaderName,  // <...> after #include
        Newline,     // end of a logical line
        End,         // end of the input of a token source
        // Only in macro replacement lists:
        Param,       // a parameter, `param` is its index
        Stringify,   // `# param`, `param` is the index
        PasteOp,     // a `##` operator of the replacement list
        Placemarker  // an empty argument while pasting
    };
    enum Flag : std::uint8_t {
        LeadingSpace = 1,  // whitespace (or a comment) came before it
        LineStart = 2,     // the first token of a logical line
        NoExpand = 4,      // a macro name met inside its own expansion: never expanded
        Unterminated = 8   // a string or character literal without its closing quote
    };

    const char* text = nullptr;
    std::uint32_t len = 0;
    // Presumed line and byte column (1-based) of the first character; line 0
    // for tokens made by a macro expansion, which take no place of their own.
    std::uint32_t line = 0;
    std::uint32_t col = 0;
    Kind kind = End;
    std::uint8_t flags = 0;
    std::uint16_t param = 0;

    std::string_view spelling() const { return std::string_view(text, len); }
    std::string str() const { return std::string(text, len); }
    bool is(char c) const { return kind == Punct && len == 1 && text[0] == c; }
    bool is(std::string_view punct) const { return kind == Punct && spelling() == punct; }
    bool is_ident(std::string_view name) const { return kind == Identifier && spelling() == name; }
    bool has(Flag f) const { return (flags & f) != 0; }
};

#endif
