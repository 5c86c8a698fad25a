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

void CxxPrinter::put_indentation()
{
    static const std::string blanks(64 * UTL_Indent::WIDTH, ' ');
    std::size_t n = static_cast<std::size_t>(m_indent.get_indent()) * UTL_Indent::WIDTH;
    if (n == 0)
        return;
    while (n > blanks.size()) {
        put(blanks.data(), blanks.size());
        n -= blanks.size();
    }
    put(blanks.data(), n);
}

void CxxPrinter::print(std::string_view text, Vars vars) { substitute(text, vars, true); }

void CxxPrinter::raw(std::string_view text, Vars vars) { substitute(text, vars, false); }

void CxxPrinter::substitute(std::string_view text, Vars vars, bool indented)
{
    // One list for all: a print never prints within itself, and the
    // compiler writes on one thread.
    static Pieces pieces;
    CxxTextTemplate::split(text, pieces);
    write(pieces, text.data(), vars, indented);
}

namespace {

bool same_name(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

std::string_view value_of(CxxPrinter::Vars vars, std::string_view name)
{
    for (const CxxPrinter::Var& v : vars)
        if (same_name(v.first, name))
            return v.second;
    throw std::logic_error("CxxPrinter: no value for $" + std::string(name) + "$");
}

} // namespace

// Every line that has text gets the indentation before its first piece; a
// line holding only its end gets none, and an empty value writes nothing.
// Unindented text gets no indentation at all; a line end at its very end
// lets the next print start a line.
void CxxPrinter::write(const Pieces& pieces, const char* text, Vars vars, bool indented)
{
    if (pieces.empty())
        return;
    for (const CxxTextTemplate::Piece& piece : pieces) {
        std::string_view run(text + piece.begin, piece.length);
        if (piece.kind == CxxTextTemplate::Piece::Value) {
            run = value_of(vars, run);
            if (run.empty())
                continue;
        }
        const bool line = piece.kind == CxxTextTemplate::Piece::Line;
        if (indented && m_line_start && !(line && piece.length == 1))
            put_indentation();
        put(run.data(), run.size());
        m_line_start = line;
    }
    if (!indented)
        m_line_start = pieces.back().kind == CxxTextTemplate::Piece::Line;
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
    if (std::uncaught_exceptions() != m_exceptions)
        return;
    if (m_close_template)
        m_printer->write(m_close_template->pieces(), m_close.data(), {}, true);
    else if (!m_close.empty())
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
    print("$param$", {{"param", param}});
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
