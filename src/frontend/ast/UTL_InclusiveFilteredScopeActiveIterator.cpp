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
    if (kind == UTL_Scope::IK_both || kind == UTL_Scope::IK_decls)
        take(scope->decls());
    if (kind == UTL_Scope::IK_both || kind == UTL_Scope::IK_localtypes)
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
