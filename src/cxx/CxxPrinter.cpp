#include "CxxPrinter.h"

#include "UTL_Indent.h"
#include "YV_TextBuffer.h"

#include <charconv>
#include <cstring>
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>

CxxPrinter::Num::Num(long long value, int base)
{
    m_length = static_cast<std::size_t>(std::to_chars(m_text, m_text + sizeof m_text, value, base).ptr - m_text);
}

CxxPrinter::CxxPrinter(std::ostream& os, UTL_Indent& indent, bool at_line_start)
    : m_os(os), m_buf(os.rdbuf()), m_text(YV_TextBuffer::of(os)), m_indent(indent), m_line_start(at_line_start)
{
}

const std::array<char, CxxPrinter::blank_count> CxxPrinter::s_blanks = [] {
    std::array<char, blank_count> blanks;
    blanks.fill(' ');
    return blanks;
}();

void CxxPrinter::put_deep_indentation(std::size_t n)
{
    while (n > s_blanks.size()) {
        put(s_blanks.data(), s_blanks.size());
        n -= s_blanks.size();
    }
    put(s_blanks.data(), n);
}

void CxxPrinter::print(std::string_view text, Vars vars) { substitute(text, vars, true); }

void CxxPrinter::raw(std::string_view text, Vars vars) { substitute(text, vars, false); }

void CxxPrinter::print(const Text& text, Vars vars)
{
    if (const CxxTextTemplate* kept = text.kept())
        write(*kept, vars, true);
    else
        substitute(text.view(), vars, true);
}

void CxxPrinter::raw(const Text& text, Vars vars)
{
    if (const CxxTextTemplate* kept = text.kept())
        write(*kept, vars, false);
    else
        substitute(text.view(), vars, false);
}

void CxxPrinter::substitute(std::string_view text, Vars vars, bool indented)
{
    // One template for all texts that are not kept: a print never prints
    // within itself, and the compiler writes on one thread.
    static CxxTextTemplate scratch;
    scratch.assign(text);
    write(scratch, vars, indented);
}

namespace {

// Names are a few characters long: compared by whole words read from both
// ends (overlapping when shorter than two words) rather than byte by byte.
template <class Word>
bool same_ends(const char* a, const char* b, std::size_t size)
{
    Word x, y, u, v;
    std::memcpy(&x, a, sizeof x);
    std::memcpy(&y, b, sizeof y);
    std::memcpy(&u, a + size - sizeof u, sizeof u);
    std::memcpy(&v, b + size - sizeof v, sizeof v);
    return x == y && u == v;
}

inline bool same_name(std::string_view a, std::string_view b)
{
    const std::size_t size = a.size();
    if (size != b.size())
        return false;
    if (size >= 8)
        return size <= 16 ? same_ends<std::uint64_t>(a.data(), b.data(), size)
                          : std::memcmp(a.data(), b.data(), size) == 0;
    if (size >= 4)
        return same_ends<std::uint32_t>(a.data(), b.data(), size);
    for (std::size_t i = 0; i < size; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

std::string_view value_of(CxxPrinter::Vars vars, std::string_view name, std::uint8_t& hint)
{
    const CxxPrinter::Var* list = vars.begin();
    if (hint < vars.size() && same_name(list[hint].first, name))
        return list[hint].second;
    for (std::size_t i = 0; i < vars.size(); ++i) {
        if (same_name(list[i].first, name)) {
            hint = static_cast<std::uint8_t>(i < 255 ? i : 255);
            return list[i].second;
        }
    }
    throw std::logic_error("CxxPrinter: no value for $" + std::string(name) + "$");
}

} // namespace

// Every line that has text gets the indentation before its first piece; a
// line holding only its end gets none, and an empty value writes nothing.
// Unindented text gets no indentation at all (it is laid out at level 0); a
// line end at its very end lets the next print start a line.
void CxxPrinter::write(const CxxTextTemplate& text, Vars vars, bool indented)
{
    const int level = indented ? m_indent.get_indent() : 0;
    const CxxTextTemplate::Layout& layout = text.layout(level, UTL_Indent::WIDTH);
    const char* chunks = layout.text.data();
    const char* names = text.text().data();
    bool line_start = m_line_start;
    for (const CxxTextTemplate::Step& step : layout.steps) {
        std::string_view piece;
        bool indent_it;
        if (step.kind == CxxTextTemplate::Step::Chunk) {
            piece = std::string_view(chunks + step.begin, step.length);
            indent_it = line_start && step.indent_first;
            line_start = step.ends_line;
        } else {
            piece = value_of(vars, std::string_view(names + step.begin, step.length), step.hint);
            if (piece.empty())
                continue;
            indent_it = line_start;
            line_start = false;
        }
        if (indent_it && level != 0)
            put_indentation();
        put(piece.data(), piece.size());
    }
    if (indented)
        m_line_start = line_start;
    else if (!layout.steps.empty())
        m_line_start = layout.steps.back().kind == CxxTextTemplate::Step::Chunk && layout.steps.back().ends_line;
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
    if (!m_close.empty())
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

void CxxPrinter::member_tail(bool no_params, const Text& tail)
{
    if (!no_params) {
        print("\n");
        outdent();
    }
    print(")");
    print(tail);
}

void CxxPrinter::member(std::string_view result, std::string_view name, std::initializer_list<std::string_view> params,
                        const Text& tail)
{
    member_of(result, name, params, tail);
}
