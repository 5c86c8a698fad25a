// The name of a declaration as written in IDL (an escaping "_" removed).
#ifndef IDENTIFIER_H
#define IDENTIFIER_H

#include <string>

class Identifier {
public:
    Identifier() = default;
    explicit Identifier(std::string name) : m_name(std::move(name)) {}
    explicit Identifier(const char* name) : m_name(name ? name : "") {}

    const char* get_string() const { return m_name.c_str(); }
    const std::string& str() const { return m_name; }

    friend bool operator==(const Identifier& a, const Identifier& b) { return a.m_name == b.m_name; }

private:
    std::string m_name;
};

#endif
