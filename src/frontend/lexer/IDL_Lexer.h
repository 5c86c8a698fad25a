// Splits preprocessed IDL text into tokens.
//
// The text holds GCC-style line markers (# <line> "<file>" [flags]), pass-through
// pragmas (prefix, ID, version) and back-end blocks (a line "%{NAME", raw
// lines, a line "%}"). Markers move the position that tokens carry; pragmas and
// file changes become directives; a block becomes one token. Comments are
// skipped as well, so raw IDL text can be read too.
//
// Tokens keep views into the text: the text must outlive the lexer's results.
#ifndef IDL_LEXER_H
#define IDL_LEXER_H

#include "IDL_Diagnostics.h"
#include "IDL_Directive.h"
#include "IDL_Literal.h"
#include "IDL_Loc.h"
#include "IDL_Token.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class IDL_Lexer {
public:
    // `file_name` names the text until a line marker says otherwise.
    IDL_Lexer(std::string_view text, const std::string& file_name);
    IDL_Lexer(const char* text, const std::string& file_name) : IDL_Lexer(std::string_view(text), file_name) {}
    // The text must outlive the lexer: no temporaries.
    IDL_Lexer(std::string&& text, const std::string& file_name) = delete;

    // Tokenizes the whole text; the last token is End. Errors are reported
    // and counted; false when there were any.
    bool run();

    const std::vector<IDL_Token>& tokens() const { return m_tokens; }
    // Hands the tokens over (the parser rewrites a few in place).
    std::vector<IDL_Token> take_tokens() { return std::move(m_tokens); }
    const std::vector<IDL_Directive>& directives() const { return m_directives; }
    const IDL_Literal& literal(std::uint32_t i) const { return m_literals[i]; }

    const std::shared_ptr<UTL_String>& file(std::uint32_t i) const { return m_files[i]; }
    // The main file: the one the first line marker names.
    std::uint32_t main_file() const { return m_main_file; }
    IDL_Loc loc(const IDL_Token& t) const { return IDL_Loc{m_files[t.file].get(), t.line, t.column}; }

    // The keyword a spelling is, or Identifier.
    static IDL_Tok keyword(std::string_view s);
    // A readable name of a token kind for messages ("';'", "identifier").
    static std::string describe(IDL_Tok kind);

private:
    void scan();
    void newline();
    void directive();
    void line_marker(const char*& p, const char* eol, bool gcc_form);
    void pragma(const char*& p, const char* eol, long column);
    void cbe_block();
    void block_comment();
    void identifier();
    void number();
    void char_literal(bool wide);
    void string_literal(bool wide);
    // Decodes one escape or character at m_p into `code`; false on error.
    bool decode_char(bool wide, std::uint32_t& code, bool& is_raw_byte);
    void push(IDL_Tok kind, const char* begin, const char* end, std::uint32_t value = 0);
    std::uint32_t file_index(const std::string& name);
    long column_of(const char* p) const { return static_cast<long>(p - m_line_start) + 1; }
    void error_at(const char* p, IDL_Diag diag, std::initializer_list<std::string> args);
    bool too_many_errors() const;

    std::string_view m_text;
    const char* m_p;
    const char* m_end;
    const char* m_line_start;
    bool m_at_line_start = true;
    bool m_seen_marker = false;
    long m_line = 1;
    std::uint32_t m_file = 0;
    std::uint32_t m_main_file = 0;
    long m_errors = 0;
    const char* m_last_bad = nullptr;

    std::vector<IDL_Token> m_tokens;
    std::vector<IDL_Directive> m_directives;
    std::vector<IDL_Literal> m_literals;
    std::vector<std::shared_ptr<UTL_String>> m_files;
    std::unordered_map<std::string, std::uint32_t> m_file_index;
};

#endif
