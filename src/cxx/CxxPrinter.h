// The text writer of the C++ emitters. An emitter hands it whole
// statements with named values, and the writer puts the current
// indentation before every line that has text:
//
//   CxxPrinter p(os(), indent());
//   p.print("void\n$cls$::$op$_yvgen_dispatch(\n", {{"cls", cls}, {"op", op}});
//   {
//       auto body = p.block("{\n", "}\n");      // "{", one level deeper, "}"
//       p.print("return $result$;\n", {{"result", result}});
//   }
//
// "$name$" stands for the value of `name`; "$$" writes one "$". A line
// holding only "\n" stays empty (no trailing blanks). Text need not end a
// line: the next print goes on where the last one stopped, and only the
// first piece of a line is indented.
//
// The writer shares the visitor's indentation object, so levels raised by
// visitors that write to the same stream and by the writer agree. A writer
// is cheap to make (a few pointers, no allocation): emitters make one where
// they need it.
//
// Values are views. A Vars list kept in a variable must not hold
// temporaries (a CxxPrinter::Num made in its initializer included): name
// them first.
//
// A text given as a literal is split into its pieces once and kept
// (CxxTextTemplate); any other string is split at every print.
#ifndef CXXPRINTER_H
#define CXXPRINTER_H

#include "CxxTextTemplate.h"
#include "UTL_Indent.h"
#include "YV_TextBuffer.h"

#include <array>
#include <exception>
#include <initializer_list>
#include <iosfwd>
#include <iterator>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class CxxPrinter {
public:
    using Var = std::pair<std::string_view, std::string_view>;
    using Vars = std::initializer_list<Var>;

    // A number as the text of a value (base 16 in lower case, without
    // prefix), made without allocating:
    //   p.print("_entry_$n$", {{"n", CxxPrinter::Num(slot)}});
    class Num {
    public:
        explicit Num(long long value, int base = 10);
        operator std::string_view() const { return std::string_view(m_text, m_length); }

    private:
        char m_text[24];
        std::size_t m_length;
    };

    // A text handed on to be printed later or elsewhere (a separator, a
    // closing text, a shape chosen among several): a literal keeps its
    // pieces as a literal printed directly does; any other string is split
    // at each print.
    class Text {
    public:
        Text() = default;
        template <std::size_t N>
        Text(const char (&literal)[N]) : m_text(literal, N - 1), m_literal(true)
        {
        }
        template <std::size_t N>
        Text(char (&text)[N]) = delete;
        Text(std::string_view text) : m_text(text) {}

        std::string_view view() const { return m_text; }
        bool empty() const { return m_text.empty(); }
        // The kept template of a literal, else null.
        const CxxTextTemplate* kept() const
        {
            return m_literal ? &CxxTextTemplate::of_literal(m_text.data(), m_text.size()) : nullptr;
        }

    private:
        std::string_view m_text;
        bool m_literal = false;
    };

    // `at_line_start` says whether the stream stands at the start of a line
    // (false when the caller has already written part of the line).
    CxxPrinter(std::ostream& os, UTL_Indent& indent, bool at_line_start = true);

    // Writes `text` with its "$name$" values replaced; every line that has
    // text starts at the current level. An unknown name is a programming
    // error (std::logic_error).
    void print(std::string_view text, Vars vars = {});
    template <std::size_t N>
    void print(const char (&text)[N], Vars vars = {})
    {
        write(CxxTextTemplate::of_literal(text, N - 1), vars, true);
    }
    // A character array that is not const is no literal.
    template <std::size_t N>
    void print(char (&text)[N], Vars vars = {}) = delete;
    void print(const Text& text, Vars vars = {});

    // Writes `text` with its values but without indentation: for the
    // pieces that the generated text fixes as unindented.
    void raw(std::string_view text, Vars vars = {});
    template <std::size_t N>
    void raw(const char (&text)[N], Vars vars = {})
    {
        write(CxxTextTemplate::of_literal(text, N - 1), vars, false);
    }
    template <std::size_t N>
    void raw(char (&text)[N], Vars vars = {}) = delete;
    void raw(const Text& text, Vars vars = {});
    // Writes the indentation of the current level and goes on on that line
    // (a line that the fixed text gives as only its indentation, or a line
    // whose first piece another visitor writes).
    void indentation();
    // Another visitor has written part of a line on the stream: the next
    // print goes on there, unindented.
    void continue_line() { m_line_start = false; }

    void indent();
    void outdent();

    // A block: writes `open`, raises the level; when the block goes out of
    // scope, lowers the level and writes `close`. A block left by an
    // exception writes nothing more: the text ends where the error stopped
    // it.
    class Block {
    public:
        Block(CxxPrinter& p, Text close)
            : m_printer(&p), m_close(close), m_exceptions(std::uncaught_exceptions())
        {
        }
        Block(Block&& other) noexcept
            : m_printer(other.m_printer), m_close(other.m_close), m_exceptions(other.m_exceptions)
        {
            other.m_printer = nullptr;
        }
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;
        Block& operator=(Block&&) = delete;
        ~Block();

    private:
        CxxPrinter* m_printer;
        Text m_close;
        int m_exceptions;
    };
    [[nodiscard]] Block block() { return block("{\n", "}\n"); }
    template <std::size_t N, std::size_t M>
    [[nodiscard]] Block block(const char (&open)[N], const char (&close)[M], Vars vars = {})
    {
        print(open, vars);
        indent();
        return Block(*this, close);
    }
    template <std::size_t N>
    [[nodiscard]] Block block(const char (&open)[N])
    {
        return block(open, "}\n");
    }
    [[nodiscard]] Block block(std::string_view open, std::string_view close = "}\n", Vars vars = {});
    // One level deeper until the block ends; writes nothing itself.
    [[nodiscard]] Block deeper()
    {
        indent();
        return Block(*this, Text());
    }

    // Writes `each(item)` for every item, `sep` between two (inline; each
    // call of `each` prints through this writer).
    template <class Range, class Each>
    void list(const Range& items, const Text& sep, Each each)
    {
        bool first = true;
        for (const auto& item : items) {
            if (!first)
                print(sep);
            first = false;
            each(item);
        }
    }

    // Writes a member declaration in the generated classes' shape: the
    // result type on its own line, "name(" on the next, one parameter per
    // line one level deeper, then ")" and `tail` (e.g. ";\n" or
    // " override;\n"). Without parameters: "name()" and `tail`.
    void member(std::string_view result, std::string_view name, std::initializer_list<std::string_view> params,
                const Text& tail);
    template <class Range>
    void member_of(std::string_view result, std::string_view name, const Range& params, const Text& tail)
    {
        const bool none = std::begin(params) == std::end(params);
        member_head(result, name, none);
        bool first = true;
        for (const auto& param : params) {
            member_param(param, first);
            first = false;
        }
        member_tail(none, tail);
    }

    std::ostream& stream() const { return m_os; }
    UTL_Indent& level() const { return m_indent; }

private:
    // Text goes straight to the stream's buffer: emitters write millions of
    // short pieces, and the stream's per-call checks would cost more than
    // the copying. An output file's buffer is filled without a virtual call.
    void put(const char* text, std::size_t size)
    {
        if (m_text)
            m_text->append(text, size);
        else
            m_buf->sputn(text, static_cast<std::streamsize>(size));
    }
    void put_indentation()
    {
        const std::size_t n = static_cast<std::size_t>(m_indent.get_indent()) * UTL_Indent::WIDTH;
        if (n <= blank_count)
            put(s_blanks.data(), n);
        else
            put_deep_indentation(n);
    }
    void put_deep_indentation(std::size_t n);
    void write(const CxxTextTemplate& text, Vars vars, bool indented);
    void substitute(std::string_view text, Vars vars, bool indented);
    void member_head(std::string_view result, std::string_view name, bool no_params);
    void member_param(std::string_view param, bool first);
    void member_tail(bool no_params, const Text& tail);

    static constexpr std::size_t blank_count = 64 * UTL_Indent::WIDTH;
    static const std::array<char, blank_count> s_blanks;

    std::ostream& m_os;
    std::streambuf* m_buf;
    YV_TextBuffer* m_text;  // m_buf when it can be filled directly, else null
    UTL_Indent& m_indent;
    bool m_line_start;
};

// Every library that prints literals includes this header. When it is
// unloaded, the destructor of this object (one per source file) tells the
// kept templates that addresses of literals may now hold other texts.
namespace {
struct CxxPrinterLibraryGuard {
    CxxPrinterLibraryGuard() = default;
    CxxPrinterLibraryGuard(const CxxPrinterLibraryGuard&) = delete;
    CxxPrinterLibraryGuard& operator=(const CxxPrinterLibraryGuard&) = delete;
    ~CxxPrinterLibraryGuard() { CxxTextTemplate::library_unloaded(); }
};
const CxxPrinterLibraryGuard cxx_printer_library_guard;
} // namespace

#endif
