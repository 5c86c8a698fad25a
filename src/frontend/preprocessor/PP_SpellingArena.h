// Storage for token spellings that exist in no file: pasted and stringized
// tokens, spellings cleaned of backslash-newlines, command-line definitions.
// Every stored text keeps its address (and its terminating NUL) for the
// arena's lifetime, so tokens may point into it.
#ifndef PP_SPELLINGARENA_H
#define PP_SPELLINGARENA_H

#include <deque>
#include <string>
#include <string_view>

class PP_SpellingArena {
public:
    // Stores `text` and returns a view of the stored copy.
    std::string_view keep(std::string text)
    {
        m_texts.push_back(std::move(text));
        return m_texts.back();
    }
    void clear() { m_texts.clear(); }

private:
    // A deque never moves its elements when it grows.
    std::deque<std::string> m_texts;
};

#endif
