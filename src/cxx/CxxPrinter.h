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
#include "YV_TextBuffer.h"

#include <exception>
#include <initializer_list>
#include <iosfwd>
#include <iterator>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class UTL_Indent;

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
        write(CxxTextTemplate::of_literal(text, N - 1).pieces(), text, vars, true);
    }
    // A character array that is not const is no literal.
    template <std::size_t N>
    void print(char (&text)[N], Vars vars = {}) = delete;

    // Writes `text` with its values but without indentation: for the
    // pieces that the generated text fixes as unindented.
    void raw(std::string_view text, Vars vars = {});
    template <std::size_t N>
    void raw(const char (&text)[N], Vars vars = {})
    {
        write(CxxTextTemplate::of_literal(text, N - 1).pieces(), text, vars, false);
    }
    template <std::size_t N>
    void raw(char (&text)[N], Vars vars = {}) = delete;
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
        // `close_template` is the kept template of `close` when that is a
        // literal, else null.
        Block(CxxPrinter& p, std::string_view close, const CxxTextTemplate* close_template = nullptr)
            : m_printer(&p), m_close(close), m_close_template(close_template),
              m_exceptions(std::uncaught_exceptions())
        {
        }
        Block(Block&& other) noexcept
            : m_printer(other.m_printer), m_close(other.m_close), m_close_template(other.m_close_template),
              m_exceptions(other.m_exceptions)
        {
            other.m_printer = nullptr;
        }
        Block(const Block&) = delete;
        Block& operator=(const Block&) = delete;
        Block& operator=(Block&&) = delete;
        ~Block();

    private:
        CxxPrinter* m_printer;
        std::string_view m_close;
        const CxxTextTemplate* m_close_template;
        int m_exceptions;
    };
    [[nodiscard]] Block block() { return block("{\n", "}\n"); }
    template <std::size_t N, std::size_t M>
    [[nodiscard]] Block block(const char (&open)[N], const char (&close)[M], Vars vars = {})
    {
        print(open, vars);
        indent();
        return Block(*this, close, &CxxTextTemplate::of_literal(close, M - 1));
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
        return Block(*this, std::string_view());
    }

    // Writes `each(item)` for every item, `sep` between two (inline; each
    // call of `each` prints through this writer).
    template <class Range, class Each>
    void list(const Range& items, std::string_view sep, Each each)
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
    void member(std::string_view result, std::string_view name, std::initializer_list<std::string> params,
                std::string_view tail);
    template <class Range>
    void member_of(std::string_view result, std::string_view name, const Range& params, std::string_view tail)
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
    using Pieces = std::vector<CxxTextTemplate::Piece>;

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
    void put_indentation();
    void write(const Pieces& pieces, const char* text, Vars vars, bool indented);
    void substitute(std::string_view text, Vars vars, bool indented);
    void member_head(std::string_view result, std::string_view name, bool no_params);
    void member_param(std::string_view param, bool first);
    void member_tail(bool no_params, std::string_view tail);

    std::ostream& m_os;
    std::streambuf* m_buf;
    YV_TextBuffer* m_text;  // m_buf when it can be filled directly, else null
    UTL_Indent& m_indent;
    bool m_line_start;
};

#endif
