// A text of the C++ text writer taken apart: runs of text within a line,
// runs that end a line (their "\n" included), and "$name$" values ("$$"
// is a run holding one "$"). The writer walks the pieces instead of
// scanning the text for "$" and line ends at every print.
//
// The texts of the emitters are literals, printed millions of times; each
// is split once, on its first print, and its pieces are kept by address for
// the rest of the process. A kept text is compared with its copy before it
// is used, so an address that comes to hold another text (an array on the
// stack, a library loaded where another was) is split anew.
#ifndef CXXTEXTTEMPLATE_H
#define CXXTEXTTEMPLATE_H

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

    // Splits `text` into `pieces` (cleared first). Throws std::logic_error
    // for a "$" without its closing "$".
    static void split(std::string_view text, std::vector<Piece>& pieces);

    // The template of the literal `text` of `size` characters: split on
    // first use, then kept.
    static const CxxTextTemplate& of_literal(const char* text, std::size_t size);

    explicit CxxTextTemplate(std::string_view text);

    const std::vector<Piece>& pieces() const { return m_pieces; }
    bool holds(const char* text, std::size_t size) const;

private:
    std::string m_text;
    std::vector<Piece> m_pieces;
};

#endif
