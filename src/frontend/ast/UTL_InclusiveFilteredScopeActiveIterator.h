// Walks the declarations of one scope, in declaration order, that are of a
// kind the filter list admits.
#ifndef UTL_INCLUSIVEFILTEREDSCOPEACTIVEITERATOR_H
#define UTL_INCLUSIVEFILTEREDSCOPEACTIVEITERATOR_H

#include "UTL_FilterList.h"
#include "UTL_Scope.h"

#include <initializer_list>
#include <vector>

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

    // The scope's own declarations (declarations-only iteration) of the
    // kinds given, in declaration order: the loop over an iterator that
    // most walks write, in one call.
    static std::vector<AST_Decl*> decls_of(UTL_Scope* scope, const UTL_FilterList& filter);
    static std::vector<AST_Decl*> decls_of(UTL_Scope* scope, std::initializer_list<AST_Decl::NodeType> kinds);

private:
    std::vector<AST_Decl*> m_items;
    std::size_t m_pos = 0;
};

#endif
