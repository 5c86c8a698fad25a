// Walks the declarations of one scope, in declaration order, that are of a
// kind the filter list admits.
#ifndef UTL_INCLUSIVEFILTEREDSCOPEACTIVEITERATOR_H
#define UTL_INCLUSIVEFILTEREDSCOPEACTIVEITERATOR_H

#include "UTL_FilterList.h"
#include "UTL_Scope.h"

class UTL_InclusiveFilteredScopeActiveIterator {
public:
    UTL_InclusiveFilteredScopeActiveIterator(UTL_Scope* scope, UTL_Scope::ScopeIterationKind kind, const UTL_FilterList& filter);

    bool is_done() const { return m_pos >= m_items.size(); }
    AST_Decl* item() const { return is_done() ? nullptr : m_items[m_pos]; }
    void next()
    {
        if (!is_done())
            ++m_pos;
    }

private:
    std::vector<AST_Decl*> m_items;
    std::size_t m_pos = 0;
};

#endif
