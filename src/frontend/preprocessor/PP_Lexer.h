// Splits one file's text into preprocessing tokens. Comments become
// whitespace, backslash-newlines join lines, string and character literals
// are single tokens (never scanned for macros or comments). Newline tokens
// end logical lines. Besides tokens it reads raw physical lines (back-end
// blocks) and skips lines of inactive #if groups without tokenizing them.
#ifndef PP_LEXER_H
#define PP_LEXER_H

#include "IDL_Diagnostics.h"
#include "PP_Token.h"

#include <cstdint>
#include <string_view>

class PP_Reporter;
class PP_SpellingArena;

class PP_Lexer {
public:
    // `text` must outlive the lexer and be followed by a NUL character (the
    // data of a std::string); it must hold no NUL of its own.
    PP_Lexer(std::string_view text, PP_SpellingArena& arena, PP_Reporter* reporter);

    // The next token: Newline at each line end, End (repeatedly) at the end.
    void lex(PP_Token& tok);
    // After "#include": reads a <...> header name on this line into `tok`;
    // false (nothing consumed but blanks) when the line goes on otherwise.
    bool lex_header_name(PP_Token& tok);
    // Skips the rest of the current logical line and its line end, without
    // tokenizing it (comments are still honoured).
    void skip_line();
    // True when the physical line ahead begins, after blanks, with "%{".
    // Meaningful at a line start only.
    bool block_ahead() const;
    // True when the physical line ahead is a block's closing line "%}".
    bool block_close_ahead() const;
    // True when `line` (a raw line) closes a back-end block: "%}" alone,
    // blanks around it allowed.
    static bool is_block_close(std::string_view line);
    // Reads the physical line ahead as it is written (without its line end
    // and a carriage return before it); false at the end of the text.
    bool raw_line(std::string_view& text);

    bool at_line_start() const { return m_bol; }
    bool at_end() const { return *m_p == '\0'; }
    // The presumed line of the next character.
    std::uint32_t line() const { return presumed(m_line); }
    // Makes the next line's presumed number `line` (#line).
    void set_next_line(std::uint32_t line) { m_delta = static_cast<std::int64_t>(line) - m_line; }
    // Lenient: unterminated literals are not reported (inactive groups,
    // #error text). Quiet: nothing is reported at all (re-lexing a paste).
    void set_lenient(bool on) { m_lenient = on; }
    void set_quiet(bool on) { m_quiet = on; }
    // The number of characters not yet read.
    std::size_t remaining() const { return static_cast<std::size_t>(m_end - m_p); }

private:
    std::uint32_t presumed(std::uint32_t physical) const
    {
        return static_cast<std::uint32_t>(physical + m_delta);
    }
    std::uint32_t column(const char* p) const { return static_cast<std::uint32_t>(p - m_line_start + 1); }
    static bool is_splice(const char* p) { return p[0] == '\\' && (p[1] == '\n' || (p[1] == '\r' && p[2] == '\n')); }
    void take_splice(const char*& p);
    void take_newline(const char*& p);
    // Skips blanks, comments and backslash-newlines; returns the flags that
    // the following token gets.
    std::uint8_t skip_space();
    void skip_block_comment(const char*& p);
    void skip_line_comment(const char*& p);
    void lex_literal(const char*& p, char quote, PP_Token& tok, bool& dirty);
    void finish(PP_Token& tok, const char* start, const char* end, bool dirty);
    void report(IDL_Diag id, std::uint32_t line, std::uint32_t col);

    const char* m_p;
    const char* m_end;
    const char* m_line_start;
    std::uint32_t m_line = 1;
    std::int64_t m_delta = 0;
    bool m_bol = true;
    bool m_lenient = false;
    bool m_quiet = false;
    PP_SpellingArena& m_arena;
    PP_Reporter* m_reporter;
};

#endif
