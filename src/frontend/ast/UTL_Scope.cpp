#include "UTL_Scope.h"

#include "AST_Decl.h"

#include <iterator>

UTL_Scope::~UTL_Scope() = default;

AST_Decl* UTL_Scope::add_decl(std::unique_ptr<AST_Decl> d)
{
    d->set_defined_in(this);
    m_decls.push_back(std::move(d));
    return m_decls.back().get();
}

AST_Decl* UTL_Scope::add_local_type(std::unique_ptr<AST_Decl> t)
{
    t->set_defined_in(this);
    m_local_types.push_back(std::move(t));
    return m_local_types.back().get();
}

AST_Decl* UTL_Scope::lookup_local(const std::string& name) const
{
    for (const auto& d : m_decls)
        if (d->local_name()->str() == name)
            return d.get();
    return nullptr;
}

AST_Decl* UTL_Scope::add_pending(std::unique_ptr<AST_Decl> d)
{
    d->set_defined_in(this);
    AST_Decl* node = d.get();
    m_pending.push_back(std::move(d));
    m_pending_at[node] = std::prev(m_pending.end());
    return node;
}

std::unique_ptr<AST_Decl> UTL_Scope::take_pending(AST_Decl* d)
{
    const auto at = m_pending_at.find(d);
    if (at == m_pending_at.end())
        return nullptr;
    std::unique_ptr<AST_Decl> out = std::move(*at->second);
    m_pending.erase(at->second);
    m_pending_at.erase(at);
    return out;
}

AST_Decl* ScopeAsDecl(UTL_Scope* s) { return s ? s->scope_as_decl() : nullptr; }

UTL_Scope* DeclAsScope(AST_Decl* d) { return d ? d->as_scope() : nullptr; }
