// An immutable text held by the tree: file names, back-end block texts.
#ifndef UTL_STRING_H
#define UTL_STRING_H

#include <string>

class UTL_String {
public:
    UTL_String() = default;
    explicit UTL_String(std::string text) : m_text(std::move(text)) {}

    const char* get_string() const { return m_text.c_str(); }
    const std::string& str() const { return m_text; }

private:
    std::string m_text;
};

#endif
