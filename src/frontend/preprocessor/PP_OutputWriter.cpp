#include "PP_OutputWriter.h"

namespace {

bool is_word_char(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

} // namespace

void PP_OutputWriter::marker(std::uint32_t line, const std::string& file, Flag flag)
{
    if (m_col > 0)
        m_out += '\n';
    m_file.clear();
    for (char c : file) {
        if (c == '\\' || c == '"')
            m_file += '\\';
        m_file += c;
    }
    m_out += "# ";
    m_out += std::to_string(line);
    m_out += " \"";
    m_out += m_file;
    m_out += '"';
    if (flag != NoFlag) {
        m_out += ' ';
        m_out += static_cast<char>('0' + flag);
    }
    m_out += '\n';
    m_line = line;
    m_col = 0;
    m_last = '\n';
    m_text_on_line = false;
}

void PP_OutputWriter::move_to(std::uint32_t line)
{
    if (line == m_line)
        return;
    if (line > m_line && line - m_line <= kMaxBlankLines) {
        m_out.append(line - m_line, '\n');
        m_line = line;
        m_col = 0;
        m_last = '\n';
        m_text_on_line = false;
        return;
    }
    // Same file, far away (or back after #line): a marker without a flag.
    if (m_col > 0)
        m_out += '\n';
    m_out += "# ";
    m_out += std::to_string(line);
    m_out += " \"";
    m_out += m_file;
    m_out += "\"\n";
    m_line = line;
    m_col = 0;
    m_last = '\n';
    m_text_on_line = false;
}

bool PP_OutputWriter::would_join(char last, char next)
{
    if (is_word_char(last))
        return is_word_char(next) || next == '"' || next == '\'' || next == '.' ||
               ((last == 'e' || last == 'E' || last == 'p' || last == 'P') && (next == '+' || next == '-'));
    switch (last) {
    case '.':
        return next == '.' || (next >= '0' && next <= '9');
    case ':':
        return next == ':';
    case '#':
        return next == '#';
    case '<': case '>': case '&': case '|': case '+': case '=':
        return next == last || next == '=';
    case '-':
        return next == '-' || next == '=' || next == '>';
    case '/':
        return next == '/' || next == '*' || next == '=';
    case '*':
        return next == '/' || next == '=';
    case '!': case '%': case '^':
        return next == '=';
    default:
        return false;
    }
}

bool PP_OutputWriter::needs_blank(const PP_Token& tok) const
{
    const char first = tok.text[0];
    return tok.has(PP_Token::LeadingSpace) || would_join(m_last, first) ||
           (m_percent_first && (first == '{' || first == '}'));
}

void PP_OutputWriter::token(const PP_Token& tok)
{
    if (tok.len == 0)
        return;
    if (tok.line) {
        move_to(tok.line);
        const std::uint32_t target = tok.col > 0 ? tok.col - 1 : 0;
        if (m_col < target) {
            m_out.append(target - m_col, ' ');
            m_col = target;
        } else if (m_col > 0 && needs_blank(tok)) {
            m_out += ' ';
            ++m_col;
        }
    } else if (m_col > 0 && needs_blank(tok)) {
        m_out += ' ';
        ++m_col;
    }
    m_percent_first = !m_text_on_line && tok.len == 1 && tok.text[0] == '%';
    m_text_on_line = true;
    m_out.append(tok.text, tok.len);
    m_col += tok.len;
    m_last = tok.text[tok.len - 1];
}

void PP_OutputWriter::line(std::uint32_t line, std::string_view text)
{
    move_to(line);
    if (m_col > 0) {
        m_out += '\n';
        ++m_line;
        m_col = 0;
        move_to(line);
    }
    m_out.append(text.data(), text.size());
    m_out += '\n';
    m_line = line + 1;
    m_col = 0;
    m_last = '\n';
    m_text_on_line = false;
}

void PP_OutputWriter::finish()
{
    if (m_col > 0)
        m_out += '\n';
    m_col = 0;
    m_text_on_line = false;
}
