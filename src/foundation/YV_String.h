// A thin string class over std::string with the operations the back ends use.
#ifndef YV_STRING_H
#define YV_STRING_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

class YV_String {
public:
    static constexpr std::size_t npos = std::string::npos;

    YV_String() = default;
    YV_String(const char* s) : m_text(s ? s : "") {}
    YV_String(std::string s) : m_text(std::move(s)) {}
    YV_String(std::string_view s) : m_text(s) {}

    const char* c_str() const { return m_text.c_str(); }
    const std::string& str() const { return m_text; }
    std::size_t length() const { return m_text.size(); }
    bool empty() const { return m_text.empty(); }

    char operator[](std::size_t i) const { return m_text[i]; }
    char& operator[](std::size_t i) { return m_text[i]; }

    std::size_t find(std::string_view what, std::size_t from = 0) const { return m_text.find(what, from); }
    std::size_t find(char c, std::size_t from = 0) const { return m_text.find(c, from); }
    std::size_t rfind(std::string_view what, std::size_t from = npos) const { return m_text.rfind(what, from); }
    std::size_t rfind(char c, std::size_t from = npos) const { return m_text.rfind(c, from); }
    bool contains(std::string_view what) const { return m_text.find(what) != npos; }

    YV_String substr(std::size_t pos, std::size_t len = npos) const { return YV_String(m_text.substr(pos, len)); }
    YV_String& insert(std::size_t pos, std::string_view s) { m_text.insert(pos, s); return *this; }
    YV_String& erase(std::size_t pos, std::size_t len = npos) { m_text.erase(pos, len); return *this; }
    YV_String& replace(std::size_t pos, std::size_t len, std::string_view s) { m_text.replace(pos, len, s); return *this; }
    YV_String& append(std::string_view s) { m_text.append(s); return *this; }
    YV_String& operator+=(std::string_view s) { m_text.append(s); return *this; }
    YV_String& operator+=(char c) { m_text.push_back(c); return *this; }
    int compare(std::string_view s) const { return std::string_view(m_text).compare(s); }

    operator std::string_view() const { return m_text; }

    friend bool operator==(const YV_String& a, const YV_String& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const YV_String& a, const YV_String& b) { return a.m_text != b.m_text; }
    friend bool operator<(const YV_String& a, const YV_String& b) { return a.m_text < b.m_text; }
    friend YV_String operator+(YV_String a, std::string_view b) { a.m_text.append(b); return a; }

private:
    std::string m_text;
};

// Writes the text; reads one whitespace-separated word, like std::string.
std::ostream& operator<<(std::ostream& os, const YV_String& s);
std::istream& operator>>(std::istream& is, YV_String& s);

template <>
struct std::hash<YV_String> {
    std::size_t operator()(const YV_String& s) const noexcept { return std::hash<std::string>()(s.str()); }
};

#endif
