// The node kinds a filtered scope iteration admits.
#ifndef UTL_FILTERLIST_H
#define UTL_FILTERLIST_H

#include "AST_Decl.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

class UTL_FilterList {
public:
    UTL_FilterList() = default;
    UTL_FilterList(std::initializer_list<AST_Decl::NodeType> kinds) : m_kinds(kinds) {}

    void insertFilter(AST_Decl::NodeType kind) { m_kinds.push_back(kind); }
    bool admits(AST_Decl::NodeType kind) const { return std::find(m_kinds.begin(), m_kinds.end(), kind) != m_kinds.end(); }

private:
    std::vector<AST_Decl::NodeType> m_kinds;
};

#endif
