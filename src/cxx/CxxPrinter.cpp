#include "CxxPrinter.h"

#include "UTL_Indent.h"
#include "YV_TextBuffer.h"

#include <charconv>
#include <ostream>
#include <stdexcept>

CxxPrinter::Num::Num(long long value, int base)
{
    m_length = static_cast<std::size_t>(std::to_chars(m_text, m_text + sizeof m_text, value, base).ptr - m_text);
}

CxxPrinter::CxxPrinter(std::ostream& os, UTL_Indent& indent, bool at_line_start)
    : m_os(os), m_buf(os.rdbuf()), m_text(YV_TextBuffer::of(os)), m_indent(indent), m_line_start(at_line_start)
{
}

// Text goes straight to the stream's buffer: emitters write millions of
// short pieces, and the stream's per-call checks would cost more than the
// copying. An output file's buffer is filled without a virtual call.
void CxxPrinter::put(std::string_view text)
{
    if (m_text)
        m_text->append(text.data(), text.size());
    else
        m_buf->sputn(text.data(), static_cast<std::streamsize>(text.size()));
}

void CxxPrinter::put_indentation()
{
    static const std::string blanks(64 * UTL_Indent::WIDTH, ' ');
    std::size_t n = static_cast<std::size_t>(m_indent.get_indent()) * UTL_Indent::WIDTH;
    while (n > blanks.size()) {
        put(blanks);
        n -= blanks.size();
    }
    put(std::string_view(blanks.data(), n));
}

void CxxPrinter::write_line_piece(std::string_view piece)
{
    if (piece.empty())
        return;
    if (m_line_start) {
        put_indentation();
        m_line_start = false;
    }
    put(piece);
}

void CxxPrinter::print(std::string_view text, Vars vars) { substitute(text, vars, true); }

void CxxPrinter::raw(std::string_view text, Vars vars) { substitute(text, vars, false); }

// Unindented text is written with the line-start flag held down, so that
// no piece of it is indented; a line end at its very end lets the next
// print start a line.
void CxxPrinter::substitute(std::string_view text, Vars vars, bool indented)
{
    std::size_t pos = 0;
    const std::size_t size = text.size();
    while (pos < size) {
        if (!indented)
            m_line_start = false;
        std::size_t stop = pos;
        while (stop < size && text[stop] != '$' && text[stop] != '\n')
            ++stop;
        if (stop == size) {
            write_line_piece(text.substr(pos));
            return;
        }
        if (text[stop] == '\n') {
            // The rest of the line and its end in one piece; an empty line
            // gets no indentation.
            if (stop > pos && m_line_start)
                put_indentation();
            put(text.substr(pos, stop + 1 - pos));
            m_line_start = true;
            pos = stop + 1;
            continue;
        }
        write_line_piece(text.substr(pos, stop - pos));
        const std::size_t end = text.find('$', stop + 1);
        if (end == std::string_view::npos)
            throw std::logic_error("CxxPrinter: unterminated $ in \"" + std::string(text) + "\"");
        const std::string_view name = text.substr(stop + 1, end - stop - 1);
        if (name.empty()) {
            write_line_piece("$");
        } else {
            bool found = false;
            for (const Var& v : vars) {
                if (v.first == name) {
                    write_line_piece(v.second);
                    found = true;
                    break;
                }
            }
            if (!found)
                throw std::logic_error("CxxPrinter: no value for $" + std::string(name) + "$");
        }
        pos = end + 1;
    }
}

void CxxPrinter::indentation()
{
    put_indentation();
    m_line_start = false;
}

void CxxPrinter::indent() { m_indent.increment(); }

void CxxPrinter::outdent() { m_indent.decrement(); }

CxxPrinter::Block::~Block()
{
    if (!m_printer)
        return;
    m_printer->outdent();
    if (std::uncaught_exceptions() == m_exceptions)
        m_printer->print(m_close);
}

CxxPrinter::Block CxxPrinter::block(std::string_view open, std::string_view close, Vars vars)
{
    print(open, vars);
    indent();
    return Block(*this, close);
}

void CxxPrinter::member_head(std::string_view result, std::string_view name, bool no_params)
{
    print("$result$\n$name$(", {{"result", result}, {"name", name}});
    if (!no_params) {
        print("\n");
        indent();
    }
}

void CxxPrinter::member_param(std::string_view param, bool first)
{
    if (!first)
        print(",\n");
    print(param);
}

void CxxPrinter::member_tail(bool no_params, std::string_view tail)
{
    if (!no_params) {
        print("\n");
        outdent();
    }
    print(")");
    print(tail);
}

void CxxPrinter::member(std::string_view result, std::string_view name, std::initializer_list<std::string> params,
                        std::string_view tail)
{
    member_of(result, name, params, tail);
}
