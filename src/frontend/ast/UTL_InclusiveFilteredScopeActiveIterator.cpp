#include "UTL_InclusiveFilteredScopeActiveIterator.h"

#include <utility>

UTL_InclusiveFilteredScopeActiveIterator::UTL_InclusiveFilteredScopeActiveIterator(UTL_Scope* scope,
                                                                                   UTL_Scope::ScopeIterationKind kind,
                                                                                   const UTL_FilterList& filter)
{
    if (!scope)
        return;
    auto take = [&](const std::vector<std::unique_ptr<AST_Decl>>& list) {
        for (const auto& d : list)
            if (filter.admits(d->node_type()))
                m_items.push_back(d.get());
    };
    const bool decls = kind == UTL_Scope::IK_both || kind == UTL_Scope::IK_decls;
    const bool types = kind == UTL_Scope::IK_both || kind == UTL_Scope::IK_localtypes;
    // One allocation, not one per doubling: back ends make an iterator for
    // every scope they write, several times over.
    m_items.reserve((decls ? scope->decls().size() : 0) + (types ? scope->local_types().size() : 0));
    if (decls)
        take(scope->decls());
    if (types)
        take(scope->local_types());
}

std::vector<AST_Decl*> UTL_InclusiveFilteredScopeActiveIterator::decls_of(UTL_Scope* scope, const UTL_FilterList& filter)
{
    UTL_InclusiveFilteredScopeActiveIterator it(scope, UTL_Scope::IK_decls, filter);
    return std::move(it.m_items);
}

std::vector<AST_Decl*> UTL_InclusiveFilteredScopeActiveIterator::decls_of(UTL_Scope* scope,
                                                                          std::initializer_list<AST_Decl::NodeType> kinds)
{
    return decls_of(scope, UTL_FilterList(kinds));
}
