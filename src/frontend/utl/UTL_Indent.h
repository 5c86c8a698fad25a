// The indentation of generated text. Writing it to a stream writes the
// blanks of its current level; emitters raise and lower the level by one.
#ifndef UTL_INDENT_H
#define UTL_INDENT_H

#include <iosfwd>

class UTL_Indent {
public:
    // Blanks written per level.
    static constexpr int WIDTH = 4;

    explicit UTL_Indent(int level = 0) : m_level(level < 0 ? 0 : level) {}

    int get_indent() const { return m_level; }
    void set_indent(int level) { m_level = level < 0 ? 0 : level; }
    void increment() { ++m_level; }
    // Never goes below level 0.
    void decrement()
    {
        if (m_level > 0)
            --m_level;
    }

private:
    int m_level;
};

std::ostream& operator<<(std::ostream& os, const UTL_Indent& indent);

#endif
