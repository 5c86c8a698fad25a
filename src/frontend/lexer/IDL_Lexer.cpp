#include "IDL_Lexer.h"

#include "IDL_Diagnostics.h"

#include <array>
#include <cstring>

namespace {

// Lexer errors after which the rest of the text is not looked at.
constexpr long kMaxErrors = 50;

struct KeywordEntry {
    const char* spelling;
    IDL_Tok kind;
    // Keywords of the language before value types: an identifier that
    // differs from one of them only in case is an error. The later keywords
    // (value types, local interfaces, typeid...) are exempt because widely
    // used files written before them spell such identifiers freely
    // ("Factory", "ValueType", "Public").
    bool classic;
};

const KeywordEntry kKeywords[] = {
    {"abstract", IDL_Tok::KwAbstract, false},   {"any", IDL_Tok::KwAny, true},
    {"attribute", IDL_Tok::KwAttribute, true},  {"boolean", IDL_Tok::KwBoolean, true},
    {"case", IDL_Tok::KwCase, true},            {"char", IDL_Tok::KwChar, true},
    {"const", IDL_Tok::KwConst, true},          {"context", IDL_Tok::KwContext, true},
    {"custom", IDL_Tok::KwCustom, false},       {"default", IDL_Tok::KwDefault, true},
    {"double", IDL_Tok::KwDouble, true},        {"enum", IDL_Tok::KwEnum, true},
    {"exception", IDL_Tok::KwException, true},  {"factory", IDL_Tok::KwFactory, false},
    {"FALSE", IDL_Tok::KwFalse, true},          {"fixed", IDL_Tok::KwFixed, true},
    {"float", IDL_Tok::KwFloat, true},          {"getraises", IDL_Tok::KwGetraises, false},
    {"in", IDL_Tok::KwIn, true},                {"inout", IDL_Tok::KwInout, true},
    {"interface", IDL_Tok::KwInterface, true},  {"local", IDL_Tok::KwLocal, false},
    {"long", IDL_Tok::KwLong, true},            {"module", IDL_Tok::KwModule, true},
    {"native", IDL_Tok::KwNative, true},        {"Object", IDL_Tok::KwObject, true},
    {"octet", IDL_Tok::KwOctet, true},          {"oneway", IDL_Tok::KwOneway, true},
    {"out", IDL_Tok::KwOut, true},              {"private", IDL_Tok::KwPrivate, false},
    {"public", IDL_Tok::KwPublic, false},       {"raises", IDL_Tok::KwRaises, true},
    {"readonly", IDL_Tok::KwReadonly, true},    {"sequence", IDL_Tok::KwSequence, true},
    {"setraises", IDL_Tok::KwSetraises, false}, {"short", IDL_Tok::KwShort, true},
    {"string", IDL_Tok::KwString, true},        {"struct", IDL_Tok::KwStruct, true},
    {"supports", IDL_Tok::KwSupports, false},   {"switch", IDL_Tok::KwSwitch, true},
    {"TRUE", IDL_Tok::KwTrue, true},            {"truncatable", IDL_Tok::KwTruncatable, false},
    {"typedef", IDL_Tok::KwTypedef, true},      {"typeid", IDL_Tok::KwTypeid, false},
    {"typeprefix", IDL_Tok::KwTypeprefix, false}, {"unsigned", IDL_Tok::KwUnsigned, true},
    {"union", IDL_Tok::KwUnion, true},          {"ValueBase", IDL_Tok::KwValueBase, false},
    {"valuetype", IDL_Tok::KwValuetype, false}, {"void", IDL_Tok::KwVoid, true},
    {"wchar", IDL_Tok::KwWchar, true},          {"wstring", IDL_Tok::KwWstring, true},
};

char fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Identifiers are most of the tokens: a spelling is compared only with the
// keywords of its length, and those whose first letter differs in more
// than case are passed over at once.
struct KeywordTables {
    static constexpr std::size_t kLongest = 11;
    std::vector<const KeywordEntry*> by_length[kLongest + 1];

    KeywordTables()
    {
        for (const KeywordEntry& k : kKeywords)
            by_length[std::strlen(k.spelling)].push_back(&k);
    }

    // The keyword spelt `s`, or null; `case_twin` is set to a classic
    // keyword that `s` spells in other case.
    const KeywordEntry* find(std::string_view s, const KeywordEntry*& case_twin) const
    {
        case_twin = nullptr;
        if (s.size() > kLongest)
            return nullptr;
        for (const KeywordEntry* k : by_length[s.size()]) {
            if (fold(k->spelling[0]) != fold(s[0]))
                continue;
            if (std::memcmp(k->spelling, s.data(), s.size()) == 0)
                return k;
            if (k->classic && !case_twin) {
                std::size_t i = 1;
                while (i < s.size() && fold(k->spelling[i]) == fold(s[i]))
                    ++i;
                if (i == s.size())
                    case_twin = k;
            }
        }
        return nullptr;
    }
};

const KeywordTables& keyword_tables()
{
    static const KeywordTables tables;
    return tables;
}

bool is_ident_start(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_ident_char(char c) { return is_ident_start(c) || is_digit(c); }
bool is_hex(char c) { return is_digit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
int hex_value(char c) { return is_digit(c) ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : c - 'A' + 10; }
bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\f' || c == '\v'; }

void append_utf8(std::string& out, std::uint32_t code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// A printable rendering of a byte for messages.
std::string show_byte(unsigned char c)
{
    static const char digits[] = "0123456789abcdef";
    if (c >= 0x21 && c < 0x7f)
        return std::string("'") + static_cast<char>(c) + "'";
    return std::string("0x") + digits[c >> 4] + digits[c & 15];
}

} // namespace

IDL_Tok IDL_Lexer::keyword(std::string_view s)
{
    const KeywordEntry* case_twin;
    const KeywordEntry* k = keyword_tables().find(s, case_twin);
    return k ? k->kind : IDL_Tok::Identifier;
}

std::string IDL_Lexer::describe(IDL_Tok kind)
{
    switch (kind) {
    case IDL_Tok::End: return "end of file";
    case IDL_Tok::Identifier: return "identifier";
    case IDL_Tok::IntLit: return "integer literal";
    case IDL_Tok::FloatLit: return "floating-point literal";
    case IDL_Tok::FixedLit: return "fixed-point literal";
    case IDL_Tok::CharLit: return "character literal";
    case IDL_Tok::WCharLit: return "wide character literal";
    case IDL_Tok::StringLit: return "string literal";
    case IDL_Tok::WStringLit: return "wide string literal";
    case IDL_Tok::CBEBlock: return "back-end block";
    case IDL_Tok::Semi: return "';'";
    case IDL_Tok::LBrace: return "'{'";
    case IDL_Tok::RBrace: return "'}'";
    case IDL_Tok::Colon: return "':'";
    case IDL_Tok::ColonColon: return "'::'";
    case IDL_Tok::Comma: return "','";
    case IDL_Tok::Assign: return "'='";
    case IDL_Tok::Plus: return "'+'";
    case IDL_Tok::Minus: return "'-'";
    case IDL_Tok::Star: return "'*'";
    case IDL_Tok::Slash: return "'/'";
    case IDL_Tok::Percent: return "'%'";
    case IDL_Tok::Tilde: return "'~'";
    case IDL_Tok::Pipe: return "'|'";
    case IDL_Tok::Caret: return "'^'";
    case IDL_Tok::Amp: return "'&'";
    case IDL_Tok::Shl: return "'<<'";
    case IDL_Tok::Shr: return "'>>'";
    case IDL_Tok::LParen: return "'('";
    case IDL_Tok::RParen: return "')'";
    case IDL_Tok::Lt: return "'<'";
    case IDL_Tok::Gt: return "'>'";
    case IDL_Tok::LBracket: return "'['";
    case IDL_Tok::RBracket: return "']'";
    default: break;
    }
    for (const KeywordEntry& k : kKeywords)
        if (k.kind == kind)
            return std::string("'") + k.spelling + "'";
    return "token";
}

IDL_Lexer::IDL_Lexer(std::string_view text, const std::string& file_name)
    : m_text(text), m_p(text.data()), m_end(text.data() + text.size()), m_line_start(text.data())
{
    m_main_file = file_index(file_name);
}

std::uint32_t IDL_Lexer::file_index(const std::string& name)
{
    auto it = m_file_index.find(name);
    if (it != m_file_index.end())
        return it->second;
    auto i = static_cast<std::uint32_t>(m_files.size());
    m_files.push_back(std::make_shared<UTL_String>(name));
    m_file_index.emplace(name, i);
    return i;
}

bool IDL_Lexer::run()
{
    m_file = m_main_file;
    m_tokens.reserve(m_text.size() / 3 + 16);
    scan();
    IDL_Token end;
    end.kind = IDL_Tok::End;
    end.line = static_cast<std::uint32_t>(m_line);
    end.column = static_cast<std::uint32_t>(column_of(m_p));
    end.file = m_file;
    m_tokens.push_back(end);
    return m_errors == 0;
}

bool IDL_Lexer::too_many_errors() const { return m_errors >= kMaxErrors; }

void IDL_Lexer::error_at(const char* p, IDL_Diag diag, std::initializer_list<std::string> args)
{
    ++m_errors;
    IDL_Diagnostics::error(diag, m_files[m_file]->str(), m_line, column_of(p), args);
    if (m_errors == kMaxErrors) {
        IDL_Diagnostics::error(IDL_Diag::PARSE_TOO_MANY_ERRORS, m_files[m_file]->str(), m_line, column_of(p));
        m_p = m_end;
    }
}

void IDL_Lexer::push(IDL_Tok kind, const char* begin, const char* end, std::uint32_t value)
{
    IDL_Token t;
    t.kind = kind;
    t.text = std::string_view(begin, static_cast<std::size_t>(end - begin));
    t.line = static_cast<std::uint32_t>(m_line);
    t.column = static_cast<std::uint32_t>(column_of(begin));
    t.file = m_file;
    t.value = value;
    m_tokens.push_back(t);
}

void IDL_Lexer::newline()
{
    ++m_p;
    ++m_line;
    m_line_start = m_p;
    m_at_line_start = true;
}

void IDL_Lexer::scan()
{
    while (m_p < m_end) {
        char c = *m_p;
        if (c == '\n') {
            newline();
            continue;
        }
        if (is_blank(c)) {
            ++m_p;
            continue;
        }
        if (m_at_line_start && c == '#') {
            directive();
            continue;
        }
        if (m_at_line_start && c == '%' && m_p + 1 < m_end && m_p[1] == '{') {
            cbe_block();
            continue;
        }
        m_at_line_start = false;
        const char* start = m_p;
        char n = m_p + 1 < m_end ? m_p[1] : '\0';
        if (c == '/' && n == '/') {
            while (m_p < m_end && *m_p != '\n')
                ++m_p;
            continue;
        }
        if (c == '/' && n == '*') {
            block_comment();
            continue;
        }
        if (c == 'L' && (n == '\'' || n == '"')) {
            ++m_p;
            if (n == '\'')
                char_literal(true);
            else
                string_literal(true);
            continue;
        }
        if (is_ident_start(c)) {
            identifier();
            continue;
        }
        if (is_digit(c) || (c == '.' && is_digit(n))) {
            number();
            continue;
        }
        if (c == '\'') {
            char_literal(false);
            continue;
        }
        if (c == '"') {
            string_literal(false);
            continue;
        }
        IDL_Tok kind = IDL_Tok::End;
        std::size_t len = 1;
        switch (c) {
        case ';': kind = IDL_Tok::Semi; break;
        case '{': kind = IDL_Tok::LBrace; break;
        case '}': kind = IDL_Tok::RBrace; break;
        case ':':
            if (n == ':') {
                kind = IDL_Tok::ColonColon;
                len = 2;
            } else {
                kind = IDL_Tok::Colon;
            }
            break;
        case ',': kind = IDL_Tok::Comma; break;
        case '=': kind = IDL_Tok::Assign; break;
        case '+': kind = IDL_Tok::Plus; break;
        case '-': kind = IDL_Tok::Minus; break;
        case '*': kind = IDL_Tok::Star; break;
        case '/': kind = IDL_Tok::Slash; break;
        case '%': kind = IDL_Tok::Percent; break;
        case '~': kind = IDL_Tok::Tilde; break;
        case '|': kind = IDL_Tok::Pipe; break;
        case '^': kind = IDL_Tok::Caret; break;
        case '&': kind = IDL_Tok::Amp; break;
        case '(': kind = IDL_Tok::LParen; break;
        case ')': kind = IDL_Tok::RParen; break;
        case '[': kind = IDL_Tok::LBracket; break;
        case ']': kind = IDL_Tok::RBracket; break;
        case '<':
            if (n == '<') {
                kind = IDL_Tok::Shl;
                len = 2;
            } else {
                kind = IDL_Tok::Lt;
            }
            break;
        case '>':
            if (n == '>') {
                kind = IDL_Tok::Shr;
                len = 2;
            } else {
                kind = IDL_Tok::Gt;
            }
            break;
        default: break;
        }
        if (kind == IDL_Tok::End) {
            // One report for a run of bad bytes.
            if (m_last_bad != start)
                error_at(start, IDL_Diag::LEX_INVALID_CHAR, {show_byte(static_cast<unsigned char>(c))});
            if (m_p < m_end) {
                ++m_p;
                m_last_bad = m_p;
            }
            continue;
        }
        m_p += len;
        push(kind, start, m_p);
    }
}

void IDL_Lexer::block_comment()
{
    const char* start = m_p;
    long start_line = m_line;
    const char* start_line_begin = m_line_start;
    m_p += 2;
    while (m_p < m_end) {
        if (*m_p == '*' && m_p + 1 < m_end && m_p[1] == '/') {
            m_p += 2;
            return;
        }
        if (*m_p == '\n') {
            ++m_line;
            m_line_start = m_p + 1;
        }
        ++m_p;
    }
    // Report at the comment's start.
    long end_line = m_line;
    const char* end_line_start = m_line_start;
    m_line = start_line;
    m_line_start = start_line_begin;
    error_at(start, IDL_Diag::LEX_UNTERMINATED_COMMENT, {});
    m_line = end_line;
    m_line_start = end_line_start;
    m_p = m_end;
}

void IDL_Lexer::identifier()
{
    const char* start = m_p;
    while (m_p < m_end && is_ident_char(*m_p))
        ++m_p;
    if (*start == '_') {
        if (m_p == start + 1) {
            error_at(start, IDL_Diag::PARSE_EMPTY_ESCAPED, {});
            return;
        }
        push(IDL_Tok::Identifier, start + 1, m_p);
        m_tokens.back().escaped = true;
        return;
    }
    std::string_view spelling(start, static_cast<std::size_t>(m_p - start));
    const KeywordEntry* case_twin;
    const KeywordEntry* k = keyword_tables().find(spelling, case_twin);
    if (!k && case_twin)
        error_at(start, IDL_Diag::LEX_KEYWORD_CASE, {std::string(spelling), case_twin->spelling});
    push(k ? k->kind : IDL_Tok::Identifier, start, m_p);
}

void IDL_Lexer::number()
{
    const char* start = m_p;
    IDL_Tok kind = IDL_Tok::IntLit;
    bool bad = false;
    if (*m_p == '0' && m_p + 1 < m_end && (m_p[1] == 'x' || m_p[1] == 'X')) {
        m_p += 2;
        const char* digits = m_p;
        while (m_p < m_end && is_hex(*m_p))
            ++m_p;
        bad = m_p == digits;
    } else {
        while (m_p < m_end && is_digit(*m_p))
            ++m_p;
        if (m_p < m_end && *m_p == '.') {
            kind = IDL_Tok::FloatLit;
            ++m_p;
            while (m_p < m_end && is_digit(*m_p))
                ++m_p;
        }
        if (m_p < m_end && (*m_p == 'e' || *m_p == 'E')) {
            kind = IDL_Tok::FloatLit;
            ++m_p;
            if (m_p < m_end && (*m_p == '+' || *m_p == '-'))
                ++m_p;
            const char* digits = m_p;
            while (m_p < m_end && is_digit(*m_p))
                ++m_p;
            bad = m_p == digits;
        } else if (m_p < m_end && (*m_p == 'd' || *m_p == 'D')) {
            kind = IDL_Tok::FixedLit;
            ++m_p;
        }
        if (kind == IDL_Tok::IntLit && *start == '0')
            for (const char* q = start; q < m_p; ++q)
                bad = bad || *q > '7';
    }
    // A number runs into letters ("12ab"): one bad token.
    while (m_p < m_end && is_ident_char(*m_p)) {
        ++m_p;
        bad = true;
    }
    if (bad) {
        error_at(start, IDL_Diag::LEX_BAD_NUMBER, {std::string(start, m_p)});
        kind = IDL_Tok::IntLit;
        push(kind, start, start + 1); // keep the parser going with a harmless "0"-like token
        m_tokens.back().text = std::string_view("0", 1);
        return;
    }
    push(kind, start, m_p);
}

bool IDL_Lexer::decode_char(bool wide, std::uint32_t& code, bool& is_raw_byte)
{
    is_raw_byte = false;
    const char* start = m_p;
    unsigned char c = static_cast<unsigned char>(*m_p);
    if (c != '\\') {
        ++m_p;
        if (c < 0x80 || !wide) {
            code = c;
            is_raw_byte = c >= 0x80;
            return true;
        }
        // A UTF-8 sequence in a wide literal.
        int more = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
        code = c & (0x3F >> more);
        for (int i = 0; i < more && m_p < m_end && (static_cast<unsigned char>(*m_p) & 0xC0) == 0x80; ++i)
            code = (code << 6) | (static_cast<unsigned char>(*m_p++) & 0x3F);
        return true;
    }
    ++m_p;
    if (m_p >= m_end || *m_p == '\n') {
        error_at(start, IDL_Diag::LEX_BAD_ESCAPE, {"\\"});
        return false;
    }
    char e = *m_p++;
    switch (e) {
    case 'n': code = '\n'; return true;
    case 't': code = '\t'; return true;
    case 'v': code = '\v'; return true;
    case 'b': code = '\b'; return true;
    case 'r': code = '\r'; return true;
    case 'f': code = '\f'; return true;
    case 'a': code = '\a'; return true;
    case '\\': code = '\\'; return true;
    case '?': code = '?'; return true;
    case '\'': code = '\''; return true;
    case '"': code = '"'; return true;
    case 'x': {
        int n = 0;
        code = 0;
        while (n < 2 && m_p < m_end && is_hex(*m_p)) {
            code = code * 16 + static_cast<std::uint32_t>(hex_value(*m_p++));
            ++n;
        }
        if (n == 0) {
            error_at(start, IDL_Diag::LEX_BAD_ESCAPE, {"\\x"});
            return false;
        }
        return true;
    }
    case 'u': {
        int n = 0;
        code = 0;
        while (n < 4 && m_p < m_end && is_hex(*m_p)) {
            code = code * 16 + static_cast<std::uint32_t>(hex_value(*m_p++));
            ++n;
        }
        if (n == 0) {
            error_at(start, IDL_Diag::LEX_BAD_ESCAPE, {"\\u"});
            return false;
        }
        if (!wide) {
            error_at(start, IDL_Diag::LEX_WIDE_ESCAPE, {});
            return false;
        }
        return true;
    }
    default:
        if (e >= '0' && e <= '7') {
            code = static_cast<std::uint32_t>(e - '0');
            for (int n = 1; n < 3 && m_p < m_end && *m_p >= '0' && *m_p <= '7'; ++n)
                code = code * 8 + static_cast<std::uint32_t>(*m_p++ - '0');
            if (code > 0xFF) {
                error_at(start, IDL_Diag::LEX_BAD_ESCAPE, {std::string(start, m_p)});
                return false;
            }
            return true;
        }
        error_at(start, IDL_Diag::LEX_BAD_ESCAPE, {std::string(start, m_p)});
        return false;
    }
}

void IDL_Lexer::char_literal(bool wide)
{
    // m_p is at the opening quote; a wide literal's 'L' is just before it.
    const char* start = wide ? m_p - 1 : m_p;
    ++m_p;
    IDL_Literal lit;
    bool ok = true;
    int count = 0;
    while (m_p < m_end && *m_p != '\'' && *m_p != '\n') {
        std::uint32_t code = 0;
        bool raw = false;
        if (!decode_char(wide, code, raw)) {
            ok = false;
            continue;
        }
        if (count++ == 0)
            lit.code = code;
    }
    if (m_p >= m_end || *m_p != '\'') {
        error_at(start, IDL_Diag::LEX_UNTERMINATED_CHAR, {});
        return;
    }
    ++m_p;
    if (ok && count != 1) {
        error_at(start, IDL_Diag::LEX_BAD_CHAR_LITERAL, {});
        ok = false;
    }
    if (wide)
        append_utf8(lit.text, lit.code);
    else
        lit.text.assign(1, static_cast<char>(lit.code));
    auto index = static_cast<std::uint32_t>(m_literals.size());
    m_literals.push_back(std::move(lit));
    push(wide ? IDL_Tok::WCharLit : IDL_Tok::CharLit, start, m_p, index);
}

void IDL_Lexer::string_literal(bool wide)
{
    const char* start = wide ? m_p - 1 : m_p;
    ++m_p;
    IDL_Literal lit;
    bool nul = false;
    while (m_p < m_end && *m_p != '"' && *m_p != '\n') {
        std::uint32_t code = 0;
        bool raw = false;
        if (!decode_char(wide, code, raw))
            continue;
        nul = nul || code == 0;
        if (wide)
            append_utf8(lit.text, code);
        else
            lit.text += static_cast<char>(code);
    }
    if (m_p >= m_end || *m_p != '"') {
        error_at(start, IDL_Diag::LEX_UNTERMINATED_STRING, {});
        return;
    }
    ++m_p;
    if (nul)
        error_at(start, IDL_Diag::LEX_NUL_IN_LITERAL, {});
    auto index = static_cast<std::uint32_t>(m_literals.size());
    m_literals.push_back(std::move(lit));
    push(wide ? IDL_Tok::WStringLit : IDL_Tok::StringLit, start, m_p, index);
}

namespace {

void skip_blanks(const char*& p, const char* eol)
{
    while (p < eol && is_blank(*p))
        ++p;
}

std::string_view word(const char*& p, const char* eol)
{
    const char* s = p;
    while (p < eol && is_ident_char(*p))
        ++p;
    return std::string_view(s, static_cast<std::size_t>(p - s));
}

// A double-quoted text with backslash escapes of '"' and '\'.
bool quoted(const char*& p, const char* eol, std::string& out)
{
    if (p >= eol || *p != '"')
        return false;
    ++p;
    while (p < eol && *p != '"') {
        if (*p == '\\' && p + 1 < eol)
            ++p;
        out += *p++;
    }
    if (p >= eol)
        return false;
    ++p;
    return true;
}

// A scoped name (A::B, ::A) as written, escaping underscores kept.
std::string scoped_name(const char*& p, const char* eol)
{
    const char* s = p;
    while (p < eol && (is_ident_char(*p) || *p == ':'))
        ++p;
    return std::string(s, p);
}

} // namespace

void IDL_Lexer::directive()
{
    const char* eol = static_cast<const char*>(std::memchr(m_p, '\n', static_cast<std::size_t>(m_end - m_p)));
    if (!eol)
        eol = m_end;
    const char* p = m_p + 1;
    skip_blanks(p, eol);
    long column = column_of(m_p);
    if (p < eol && is_digit(*p)) {
        line_marker(p, eol, true);
    } else {
        std::string_view w = word(p, eol);
        if (w == "line")
            line_marker(p, eol, false);
        else if (w == "pragma")
            pragma(p, eol, column);
        // Other directives cannot reach here from the preprocessor; in raw
        // text they are passed over.
    }
    m_p = eol;
}

void IDL_Lexer::line_marker(const char*& p, const char* eol, bool gcc_form)
{
    skip_blanks(p, eol);
    long line = 0;
    const char* digits = p;
    while (p < eol && is_digit(*p) && line < 100000000)
        line = line * 10 + (*p++ - '0');
    if (p == digits) {
        error_at(m_p, IDL_Diag::LEX_BAD_DIRECTIVE, {"line"});
        return;
    }
    skip_blanks(p, eol);
    std::string file;
    bool has_file = p < eol && *p == '"';
    if (has_file && !quoted(p, eol, file)) {
        error_at(m_p, IDL_Diag::LEX_BAD_DIRECTIVE, {"line"});
        return;
    }
    int flag = 0;
    if (gcc_form) {
        skip_blanks(p, eol);
        if (p < eol && is_digit(*p))
            flag = *p - '0';
    }
    if (has_file) {
        std::uint32_t index = file_index(file);
        // The first marker of the text names the main file.
        if (!m_seen_marker && m_tokens.empty())
            m_main_file = index;
        if (flag == 1 || flag == 2) {
            IDL_Directive d;
            d.kind = flag == 1 ? IDL_Directive::FileEnter : IDL_Directive::FileLeave;
            d.name = file;
            d.loc = IDL_Loc{m_files[index].get(), line, 1};
            d.before = m_tokens.size();
            m_directives.push_back(std::move(d));
        }
        m_file = index;
    }
    m_seen_marker = true;
    // The line after the marker is line `line`; the newline ahead counts one.
    m_line = line - 1;
}

void IDL_Lexer::pragma(const char*& p, const char* eol, long column)
{
    skip_blanks(p, eol);
    std::string_view kind = word(p, eol);
    IDL_Directive d;
    d.loc = IDL_Loc{m_files[m_file].get(), m_line, column};
    d.before = m_tokens.size();
    skip_blanks(p, eol);
    bool ok = true;
    if (kind == "prefix") {
        d.kind = IDL_Directive::Prefix;
        ok = quoted(p, eol, d.arg);
    } else if (kind == "ID") {
        d.kind = IDL_Directive::Id;
        d.name = scoped_name(p, eol);
        skip_blanks(p, eol);
        ok = !d.name.empty() && quoted(p, eol, d.arg);
    } else if (kind == "version") {
        d.kind = IDL_Directive::Version;
        d.name = scoped_name(p, eol);
        skip_blanks(p, eol);
        const char* s = p;
        while (p < eol && !is_blank(*p))
            ++p;
        d.arg.assign(s, p);
        ok = !d.name.empty() && !d.arg.empty();
    } else {
        // Pragmas for other tools are passed over.
        return;
    }
    if (!ok) {
        error_at(m_p, IDL_Diag::LEX_BAD_DIRECTIVE, {"pragma " + std::string(kind)});
        return;
    }
    m_directives.push_back(std::move(d));
}

void IDL_Lexer::cbe_block()
{
    const char* start = m_p;
    long start_line = m_line;
    const char* start_line_begin = m_line_start;
    const char* eol = static_cast<const char*>(std::memchr(m_p, '\n', static_cast<std::size_t>(m_end - m_p)));
    if (!eol)
        eol = m_end;
    const char* name_begin = m_p + 2;
    skip_blanks(name_begin, eol);
    const char* name_end = eol;
    while (name_end > name_begin && is_blank(name_end[-1]))
        --name_end;
    std::string_view name(name_begin, static_cast<std::size_t>(name_end - name_begin));
    if (name.empty())
        error_at(start, IDL_Diag::LEX_BLOCK_NAME, {});

    IDL_Literal body;
    m_p = eol;
    bool closed = false;
    while (m_p < m_end) {
        newline();
        const char* line_end =
            static_cast<const char*>(std::memchr(m_p, '\n', static_cast<std::size_t>(m_end - m_p)));
        if (!line_end)
            line_end = m_end;
        const char* a = m_p;
        const char* b = line_end;
        while (a < b && is_blank(*a))
            ++a;
        while (b > a && is_blank(b[-1]))
            --b;
        if (b - a == 2 && a[0] == '%' && a[1] == '}') {
            closed = true;
            m_p = line_end;
            break;
        }
        if (line_end == m_end && m_p == m_end)
            break;
        body.text.append(m_p, line_end);
        body.text += '\n';
        m_p = line_end;
    }
    if (!closed) {
        long end_line = m_line;
        const char* end_line_start = m_line_start;
        m_line = start_line;
        m_line_start = start_line_begin;
        error_at(start, IDL_Diag::LEX_UNTERMINATED_BLOCK, {std::string(name)});
        m_line = end_line;
        m_line_start = end_line_start;
        m_p = m_end;
        return;
    }
    if (name.empty())
        return;
    auto index = static_cast<std::uint32_t>(m_literals.size());
    m_literals.push_back(std::move(body));
    IDL_Token t;
    t.kind = IDL_Tok::CBEBlock;
    t.text = name;
    t.line = static_cast<std::uint32_t>(start_line);
    t.column = static_cast<std::uint32_t>(start - start_line_begin) + 1;
    t.file = m_file;
    t.value = index;
    m_tokens.push_back(t);
    m_at_line_start = false;
}
