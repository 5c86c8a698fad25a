#include "CxxPrinter.h"

#include "UTL_Indent.h"

#include <ostream>
#include <stdexcept>

CxxPrinter::CxxPrinter(std::ostream& os, UTL_Indent& indent, bool at_line_start)
    : m_os(os), m_indent(indent), m_line_start(at_line_start)
{
}

void CxxPrinter::write_line_piece(std::string_view piece)
{
    if (piece.empty())
        return;
    if (m_line_start) {
        m_os << m_indent;
        m_line_start = false;
    }
    m_os.write(piece.data(), static_cast<std::streamsize>(piece.size()));
}

void CxxPrinter::print(std::string_view text, Vars vars)
{
    std::size_t pos = 0;
    while (pos < text.size()) {
        const std::size_t stop = text.find_first_of("$\n", pos);
        if (stop == std::string_view::npos) {
            write_line_piece(text.substr(pos));
            return;
        }
        write_line_piece(text.substr(pos, stop - pos));
        if (text[stop] == '\n') {
            m_os.put('\n');
            m_line_start = true;
            pos = stop + 1;
            continue;
        }
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

void CxxPrinter::raw(std::string_view text)
{
    m_os.write(text.data(), static_cast<std::streamsize>(text.size()));
    if (!text.empty())
        m_line_start = text.back() == '\n';
}

void CxxPrinter::indentation()
{
    m_os << m_indent;
    m_line_start = false;
}

void CxxPrinter::indent() { m_indent.increment(); }

void CxxPrinter::outdent() { m_indent.decrement(); }

CxxPrinter::Block::~Block()
{
    if (m_printer) {
        m_printer->outdent();
        m_printer->print(m_close);
    }
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
