// A text of the C++ text writer taken apart: runs of text within a line,
// runs that end a line (their "\n" included), and "$name$" values ("$$"
// is a run holding one "$"). The writer walks the pieces instead of
// scanning the text for "$" and line ends at every print.
//
// For each indentation level it is printed at, the template also keeps a
// layout: the constant text between two values joined into one chunk, with
// the indentation of every line that begins inside the chunk already in
// place. Printing then copies a chunk, or a value, per step; only the first
// line of a chunk depends on where the last print stopped.
//
// The texts of the emitters are literals, printed millions of times; each
// is split once, on its first print, and its pieces are kept by address for
// the rest of the process. A kept text is compared with its copy before it
// is used, so an address that comes to hold another text (an array on the
// stack, a library loaded where another was) is split anew. A literal that
// lies in a read-only segment of the program or of a library cannot change
// while that is loaded: it is compared when first met, and again after a
// library has been unloaded (see CxxPrinter.h).
#ifndef CXXTEXTTEMPLATE_H
#define CXXTEXTTEMPLATE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CxxTextTemplate {
public:
    struct Piece {
        enum Kind : std::uint8_t { Run, Line, Value };
        Kind kind;
        std::uint32_t begin;   // offset in the text: of the run, or of the value's name
        std::uint32_t length;  // of the run (a Line's "\n" included) or of the name
    };

    // One step of a layout: a chunk of constant text, or a value.
    struct Step {
        enum Kind : std::uint8_t { Chunk, Value };
        Kind kind;
        // Chunk: its first line takes the indentation when the chunk starts
        // a line (false when that line holds only its end).
        bool indent_first;
        // Chunk: it ends a line.
        bool ends_line;
        // Value: where its name stood in the list of values last time; the
        // lists given at one place of the emitters have one order.
        mutable std::uint8_t hint;
        std::uint32_t begin;   // Chunk: in the layout's text; Value: the name in the template's text
        std::uint32_t length;
    };

    struct Layout {
        int level = 0;
        std::string text;  // the chunks, one after the other
        std::vector<Step> steps;
    };

    // Splits `text` into `pieces` (cleared first). Throws std::logic_error
    // for a "$" without its closing "$".
    static void split(std::string_view text, std::vector<Piece>& pieces);

    // The template of the literal `text` of `size` characters: split on
    // first use, then kept.
    static const CxxTextTemplate& of_literal(const char* text, std::size_t size);
    // A library has been unloaded: its literals' addresses may come to hold
    // other texts, so every kept text is compared with its copy again.
    static void library_unloaded();

    CxxTextTemplate() = default;
    explicit CxxTextTemplate(std::string_view text);
    // Takes `text` apart anew, reusing the storage (for texts that are not
    // kept).
    void assign(std::string_view text);

    const std::string& text() const { return m_text; }
    const std::vector<Piece>& pieces() const { return m_pieces; }
    bool holds(const char* text, std::size_t size) const;
    // The layout at `level` indentation levels of `width` blanks each; made
    // on first use.
    const Layout& layout(int level, int width) const
    {
        if (static_cast<unsigned>(level) < m_by_level.size() && m_by_level[static_cast<unsigned>(level)] != 0)
            return m_layouts[m_by_level[static_cast<unsigned>(level)] - 1U];
        return add_layout(level, width);
    }

private:
    const Layout& add_layout(int level, int width) const;
    void lay_out(Layout& layout, int width) const;

    std::string m_text;
    std::vector<Piece> m_pieces;
    // Layouts by level; m_layouts_used of them are valid (the others keep
    // their storage for reuse by assign).
    mutable std::vector<Layout> m_layouts;
    mutable std::size_t m_layouts_used = 0;
    // For the shallow levels: 1 + the index of the level's layout, 0 for
    // none yet.
    mutable std::array<std::uint8_t, 16> m_by_level{};
};

#endif
