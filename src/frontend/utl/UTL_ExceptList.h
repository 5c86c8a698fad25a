// The exceptions of a raises clause, in the order of the clause.
#ifndef UTL_EXCEPTLIST_H
#define UTL_EXCEPTLIST_H

#include <vector>

class AST_Exception;

class UTL_ExceptList {
public:
    void append(AST_Exception* e) { m_items.push_back(e); }
    const std::vector<AST_Exception*>& items() const { return m_items; }
    bool empty() const { return m_items.empty(); }

private:
    std::vector<AST_Exception*> m_items;
};

#endif
