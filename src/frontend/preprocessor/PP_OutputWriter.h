// Writes the preprocessed text: tokens on the lines and columns they came
// from (blank lines for removed ones, a line marker across larger gaps),
// whole lines for pass-through pragmas and back-end blocks, and the line
// markers `# <line> "<file>" [1|2]`.
#ifndef PP_OUTPUTWRITER_H
#define PP_OUTPUTWRITER_H

#include "PP_Token.h"

#include <cstdint>
#include <string>
#include <string_view>

class PP_OutputWriter {
public:
    // Gaps of up to this many lines are bridged with blank lines, larger
    // ones with a line marker.
    static constexpr std::uint32_t kMaxBlankLines = 8;
    enum Flag { NoFlag = 0, Enter = 1, Return = 2 };

    explicit PP_OutputWriter(std::string& out) : m_out(out) {}

    // The next output line is line `line` of `file`.
    void marker(std::uint32_t line, const std::string& file, Flag flag);
    // Writes a token: at its own line and column when it has them, else
    // after the previous one, with a blank where it had whitespace before
    // it or where the two would otherwise read as one token (or as the
    // start of a back-end block). Tokens never begin with '#' here.
    void token(const PP_Token& tok);
    // Writes `text` as the whole of line `line`.
    void line(std::uint32_t line, std::string_view text);
    // Ends the last line.
    void finish();

private:
    void move_to(std::uint32_t line);
    static bool would_join(char last, char next);
    bool needs_blank(const PP_Token& tok) const;

    std::string& m_out;
    std::string m_file;       // the current file's name, escaped
    std::uint32_t m_line = 1; // the line the current output line stands for
    std::uint32_t m_col = 0;  // characters written on the current line
    char m_last = '\n';
    // The last token was a '%' that began its line: a '{' or '}' right
    // after it would read as a back-end block line.
    bool m_percent_first = false;
    bool m_text_on_line = false;
};

#endif
