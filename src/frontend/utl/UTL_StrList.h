// A list of texts (an operation's context clause, pragma texts).
#ifndef UTL_STRLIST_H
#define UTL_STRLIST_H

#include <string>
#include <vector>

class UTL_StrList {
public:
    UTL_StrList() = default;
    explicit UTL_StrList(std::vector<std::string> items) : m_items(std::move(items)) {}
    const std::vector<std::string>& items() const { return m_items; }

private:
    std::vector<std::string> m_items;
};

#endif
