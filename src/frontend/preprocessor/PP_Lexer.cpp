#include "PP_Lexer.h"

#include "PP_Reporter.h"
#include "PP_SpellingArena.h"

#include <array>
#include <cstring>

namespace {

enum : std::uint8_t { kIdStart = 1, kIdChar = 2, kDigit = 4, kBlank = 8 };

constexpr std::array<std::uint8_t, 256> make_classes()
{
    std::array<std::uint8_t, 256> t{};
    for (int c = 'a'; c <= 'z'; ++c)
        t[c] = kIdStart | kIdChar;
    for (int c = 'A'; c <= 'Z'; ++c)
        t[c] = kIdStart | kIdChar;
    t['_'] = kIdStart | kIdChar;
    for (int c = '0'; c <= '9'; ++c)
        t[c] = kIdChar | kDigit;
    t[' '] = t['\t'] = t['\r'] = t['\f'] = t['\v'] = kBlank;
    return t;
}

constexpr std::array<std::uint8_t, 256> kClass = make_classes();

inline bool has_class(char c, std::uint8_t cls) { return (kClass[static_cast<unsigned char>(c)] & cls) != 0; }

// The length of the operator or punctuator at `p` (0: none).
std::uint32_t punct_length(const char* p)
{
    const char c = p[0], d = p[1];
    switch (c) {
    case '(': case ')': case '[': case ']': case '{': case '}':
    case ',': case ';': case '?': case '~':
        return 1;
    case ':':
        return d == ':' ? 2 : 1;
    case '#':
        return d == '#' ? 2 : 1;
    case '.':
        return (d == '.' && p[2] == '.') ? 3 : 1;
    case '<':
    case '>':
        if (d == c)
            return p[2] == '=' ? 3 : 2;
        return d == '=' ? 2 : 1;
    case '&':
    case '|':
    case '+':
        return (d == c || d == '=') ? 2 : 1;
    case '-':
        return (d == '-' || d == '=' || d == '>') ? 2 : 1;
    case '=': case '!': case '*': case '/': case '%': case '^':
        return d == '=' ? 2 : 1;
    default:
        return 0;
    }
}

} // namespace

PP_Lexer::PP_Lexer(std::string_view text, PP_SpellingArena& arena, PP_Reporter* reporter)
    : m_p(text.data()), m_end(text.data() + text.size()), m_line_start(text.data()), m_arena(arena),
      m_reporter(reporter)
{
}

void PP_Lexer::report(IDL_Diag id, std::uint32_t line, std::uint32_t col)
{
    if (!m_quiet && m_reporter)
        m_reporter->error(id, line, col);
}

void PP_Lexer::take_splice(const char*& p)
{
    p += (p[1] == '\n') ? 2 : 3;
    ++m_line;
    m_line_start = p;
}

void PP_Lexer::take_newline(const char*& p)
{
    ++p;
    ++m_line;
    m_line_start = p;
}

void PP_Lexer::skip_block_comment(const char*& p)
{
    const std::uint32_t line = presumed(m_line), col = column(p);
    p += 2;
    for (;;) {
        const char c = *p;
        if (c == '*' && p[1] == '/') {
            p += 2;
            return;
        }
        if (c == '\n') {
            take_newline(p);
            continue;
        }
        if (c == '\0') {
            report(IDL_Diag::PP_UNTERMINATED_COMMENT, line, col);
            return;
        }
        ++p;
    }
}

void PP_Lexer::skip_line_comment(const char*& p)
{
    // Up to the line end, which stays; a backslash-newline continues it.
    for (;;) {
        const void* nl = std::memchr(p, '\n', static_cast<std::size_t>(m_end - p));
        if (!nl) {
            p = m_end;
            return;
        }
        const char* q = static_cast<const char*>(nl);
        const char* before = (q > p && q[-1] == '\r') ? q - 1 : q;
        if (before > p && before[-1] == '\\') {
            p = q;
            take_newline(p);
            continue;
        }
        p = q;
        return;
    }
}

std::uint8_t PP_Lexer::skip_space()
{
    std::uint8_t flags = 0;
    const char* p = m_p;
    for (;;) {
        const char c = *p;
        if (has_class(c, kBlank)) {
            ++p;
            flags |= PP_Token::LeadingSpace;
        } else if (c == '\\' && is_splice(p)) {
            take_splice(p);
        } else if (c == '/' && p[1] == '*') {
            skip_block_comment(p);
            flags |= PP_Token::LeadingSpace;
        } else if (c == '/' && p[1] == '/') {
            skip_line_comment(p);
            flags |= PP_Token::LeadingSpace;
        } else {
            break;
        }
    }
    m_p = p;
    return flags;
}

void PP_Lexer::finish(PP_Token& tok, const char* start, const char* end, bool dirty)
{
    if (!dirty) {
        tok.text = start;
        tok.len = static_cast<std::uint32_t>(end - start);
        return;
    }
    // The spelling holds backslash-newlines: keep a joined copy.
    std::string clean;
    clean.reserve(static_cast<std::size_t>(end - start));
    for (const char* p = start; p < end;) {
        if (is_splice(p))
            p += (p[1] == '\n') ? 2 : 3;
        else
            clean += *p++;
    }
    std::string_view kept = m_arena.keep(std::move(clean));
    tok.text = kept.data();
    tok.len = static_cast<std::uint32_t>(kept.size());
}

void PP_Lexer::lex_literal(const char*& p, char quote, PP_Token& tok, bool& dirty)
{
    tok.kind = quote == '"' ? PP_Token::String : PP_Token::CharLit;
    ++p;
    for (;;) {
        const char c = *p;
        if (c == quote) {
            ++p;
            return;
        }
        if (c == '\\') {
            if (is_splice(p)) {
                take_splice(p);
                dirty = true;
            } else if (p[1] != '\0' && p[1] != '\n') {
                p += 2;
            } else {
                ++p;
            }
            continue;
        }
        if (c == '\n' || c == '\0') {
            // The literal ends with its line; the line end stays.
            tok.flags |= PP_Token::Unterminated;
            if (!m_lenient)
                report(quote == '"' ? IDL_Diag::PP_UNTERMINATED_STRING : IDL_Diag::PP_UNTERMINATED_CHAR, tok.line,
                       tok.col);
            return;
        }
        ++p;
    }
}

void PP_Lexer::lex(PP_Token& tok)
{
    std::uint8_t flags = skip_space();
    if (m_bol)
        flags |= PP_Token::LineStart | PP_Token::LeadingSpace;
    const char* p = m_p;
    const char* start = p;
    tok.line = presumed(m_line);
    tok.col = column(p);
    tok.flags = flags;
    tok.param = 0;
    bool dirty = false;
    const char c = *p;

    if (c == '\0') {
        tok.kind = PP_Token::End;
        tok.text = p;
        tok.len = 0;
        return;
    }
    if (c == '\n') {
        tok.kind = PP_Token::Newline;
        tok.text = p;
        tok.len = 1;
        take_newline(p);
        m_p = p;
        m_bol = true;
        return;
    }
    m_bol = false;

    if (has_class(c, kIdStart)) {
        tok.kind = PP_Token::Identifier;
        for (;;) {
            if (has_class(*p, kIdChar))
                ++p;
            else if (*p == '\\' && is_splice(p)) {
                take_splice(p);
                dirty = true;
            } else
                break;
        }
        if (p == start + 1 && c == 'L' && (*p == '"' || *p == '\''))
            lex_literal(p, *p, tok, dirty);
    } else if (has_class(c, kDigit) || (c == '.' && has_class(p[1], kDigit))) {
        tok.kind = PP_Token::Number;
        ++p;
        for (;;) {
            const char d = *p;
            if ((d == '+' || d == '-') && (p[-1] == 'e' || p[-1] == 'E' || p[-1] == 'p' || p[-1] == 'P'))
                ++p;
            else if (has_class(d, kIdChar) || d == '.')
                ++p;
            else if (d == '\\' && is_splice(p)) {
                take_splice(p);
                dirty = true;
            } else
                break;
        }
    } else if (c == '"' || c == '\'') {
        lex_literal(p, c, tok, dirty);
    } else if (std::uint32_t n = punct_length(p)) {
        tok.kind = PP_Token::Punct;
        p += n;
    } else {
        tok.kind = PP_Token::Other;
        ++p;
    }
    m_p = p;
    finish(tok, start, p, dirty);
}

bool PP_Lexer::lex_header_name(PP_Token& tok)
{
    std::uint8_t flags = skip_space();
    const char* p = m_p;
    if (*p != '<')
        return false;
    const char* q = p + 1;
    while (*q != '>' && *q != '\n' && *q != '\0')
        ++q;
    if (*q != '>')
        return false;
    tok.kind = PP_Token::HeaderName;
    tok.flags = flags;
    tok.param = 0;
    tok.line = presumed(m_line);
    tok.col = column(p);
    tok.text = p;
    tok.len = static_cast<std::uint32_t>(q + 1 - p);
    m_p = q + 1;
    m_bol = false;
    return true;
}

void PP_Lexer::skip_line()
{
    const char* p = m_p;
    for (;;) {
        const char c = *p;
        switch (c) {
        case '\0':
            m_p = p;
            return;
        case '\n':
            take_newline(p);
            m_p = p;
            m_bol = true;
            return;
        case '\\':
            if (is_splice(p))
                take_splice(p);
            else
                ++p;
            break;
        case '/':
            if (p[1] == '*')
                skip_block_comment(p);
            else if (p[1] == '/')
                skip_line_comment(p);
            else
                ++p;
            break;
        case '"':
        case '\'':
            // Leniently: to the closing quote or the line end.
            for (++p; *p != c && *p != '\n' && *p != '\0';) {
                if (*p == '\\' && is_splice(p))
                    take_splice(p);
                else if (*p == '\\' && p[1] != '\n' && p[1] != '\0')
                    p += 2;
                else
                    ++p;
            }
            if (*p == c)
                ++p;
            break;
        default:
            ++p;
            break;
        }
    }
}

bool PP_Lexer::block_ahead() const
{
    const char* p = m_p;
    while (*p == ' ' || *p == '\t')
        ++p;
    return p[0] == '%' && p[1] == '{';
}

bool PP_Lexer::is_block_close(std::string_view line)
{
    std::size_t i = 0;
    while (i < line.size() && (line[i] == ' ' || line[i] == '\t'))
        ++i;
    if (line.compare(i, 2, "%}") != 0)
        return false;
    for (i += 2; i < line.size(); ++i)
        if (line[i] != ' ' && line[i] != '\t' && line[i] != '\r')
            return false;
    return true;
}

bool PP_Lexer::block_close_ahead() const
{
    const char* p = m_p;
    while (*p == ' ' || *p == '\t')
        ++p;
    if (p[0] != '%' || p[1] != '}')
        return false;
    const char* e = p + 2;
    while (*e != '\n' && *e != '\0')
        ++e;
    return is_block_close(std::string_view(p, static_cast<std::size_t>(e - p)));
}

bool PP_Lexer::raw_line(std::string_view& text)
{
    if (*m_p == '\0')
        return false;
    const void* nl = std::memchr(m_p, '\n', static_cast<std::size_t>(m_end - m_p));
    const char* e = nl ? static_cast<const char*>(nl) : m_end;
    const char* t = (e > m_p && e[-1] == '\r') ? e - 1 : e;
    text = std::string_view(m_p, static_cast<std::size_t>(t - m_p));
    m_p = e;
    if (nl)
        take_newline(m_p);
    m_bol = true;
    return true;
}
