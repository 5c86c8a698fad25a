// Watches one reading of a file for the include-guard shape: nothing but
// an "#ifndef X" (or "#if !defined X") group, with nothing after its
// #endif. Such a file need not be read again while X is defined.
#ifndef PP_GUARDDETECTOR_H
#define PP_GUARDDETECTOR_H

#include <cstddef>
#include <string>
#include <string_view>

class PP_GuardDetector {
public:
    // A token, a block or a directive other than a conditional: harmless
    // inside the guard group, fatal to the shape before or after it.
    void other()
    {
        if (m_state != Open)
            m_state = None;
    }
    // An #if/#ifdef/#ifndef opening at nesting depth `depth` (0: outermost).
    // `guard` is X for "#ifndef X" and "#if !defined X", else empty.
    void open(std::size_t depth, std::string_view guard)
    {
        if (m_state == Start && depth == 0 && !guard.empty()) {
            m_state = Open;
            m_macro.assign(guard);
        } else if (depth == 0) {
            m_state = None;
        }
    }
    // An #elif or #else at depth `depth` (the group's own depth).
    void branch(std::size_t depth)
    {
        if (depth == 0)
            m_state = None;
    }
    // An #endif closing the group of depth `depth`.
    void close(std::size_t depth)
    {
        if (depth == 0 && m_state == Open)
            m_state = Closed;
    }
    // The guard macro once the whole file has been read, or empty.
    std::string result() const { return m_state == Closed ? m_macro : std::string(); }

private:
    enum State { Start, Open, Closed, None };
    State m_state = Start;
    std::string m_macro;
};

#endif
