#include "IDL_RepoIds.h"

#include "AST_Decl.h"
#include "AST_Module.h"
#include "IDL_Diagnostics.h"
#include "UTL_Scope.h"

#include <algorithm>

namespace {

// The declaration and its enclosing scopes, outermost first, root left out.
std::vector<AST_Decl*> chain_of(AST_Decl* d)
{
    std::vector<AST_Decl*> chain;
    chain.reserve(8);  // deeper nesting is rare
    for (AST_Decl* cur = d; cur && cur->node_type() != AST_Decl::NT_root; cur = ScopeAsDecl(cur->defined_in()))
        chain.push_back(cur);
    std::reverse(chain.begin(), chain.end());
    return chain;
}

// The first opening of a module, so that all openings count as one scope.
const AST_Decl* first_opening(const AST_Decl* d)
{
    const AST_Module* m = dynamic_cast<const AST_Module*>(d);
    while (m && m->previous_opening())
        m = m->previous_opening();
    return m ? m : d;
}

bool valid_version(const std::string& v)
{
    std::size_t dot = v.find('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 == v.size())
        return false;
    for (std::size_t i = 0; i < v.size(); ++i)
        if (i != dot && (v[i] < '0' || v[i] > '9'))
            return false;
    return true;
}

} // namespace

IDL_RepoIds::IDL_RepoIds() : m_frames(1), m_prefixes(1) {}

void IDL_RepoIds::enter_scope() { m_frames.push_back(m_frames.back()); }

void IDL_RepoIds::leave_scope()
{
    if (m_frames.size() > 1)
        m_frames.pop_back();
}

void IDL_RepoIds::enter_file() { m_frames.push_back(Frame()); }

void IDL_RepoIds::leave_file() { leave_scope(); }

void IDL_RepoIds::set_prefix(const std::string& prefix, std::size_t depth)
{
    std::size_t i = 0;
    while (i < m_prefixes.size() && m_prefixes[i] != prefix)
        ++i;
    if (i == m_prefixes.size())
        m_prefixes.push_back(prefix);
    m_frames.back().prefix = i;
    m_frames.back().depth = depth;
}

void IDL_RepoIds::declared(AST_Decl* d) { m_entries.push_back(Entry{d, nullptr, m_frames.back().prefix, m_frames.back().depth}); }

void IDL_RepoIds::forward_declared(AST_Decl* d)
{
    declared(d);
    m_forward_prefix[d] = m_frames.back().prefix;
}

void IDL_RepoIds::defined(AST_Decl* d, const IDL_Loc& loc)
{
    declared(d);
    auto it = m_forward_prefix.find(d);
    if (it != m_forward_prefix.end() && it->second != m_frames.back().prefix)
        IDL_Diagnostics::error(IDL_Diag::FORWARD_PREFIX, loc.file_name(), loc.line, loc.column,
                               {d->local_name()->str(), m_prefixes[m_frames.back().prefix], m_prefixes[it->second]});
}

void IDL_RepoIds::alias(AST_Decl* d, AST_Decl* same) { m_entries.push_back(Entry{d, same, 0, 0}); }

void IDL_RepoIds::set_id(AST_Decl* d, const std::string& id, const IDL_Loc& loc)
{
    auto ins = m_ids.emplace(d, id);
    if (!ins.second && ins.first->second != id)
        IDL_Diagnostics::error(IDL_Diag::REPOID_TWICE, loc.file_name(), loc.line, loc.column,
                               {d->local_name()->str(), ins.first->second});
}

void IDL_RepoIds::set_version(AST_Decl* d, const std::string& version, const IDL_Loc& loc)
{
    if (!valid_version(version)) {
        IDL_Diagnostics::error(IDL_Diag::BAD_VERSION, loc.file_name(), loc.line, loc.column, {version});
        return;
    }
    auto ins = m_versions.emplace(d, version);
    if (!ins.second && ins.first->second != version)
        IDL_Diagnostics::error(IDL_Diag::VERSION_TWICE, loc.file_name(), loc.line, loc.column,
                               {d->local_name()->str(), ins.first->second});
}

void IDL_RepoIds::set_typeprefix(AST_Decl* d, const std::string& prefix) { m_typeprefix[first_opening(d)] = prefix; }

std::string IDL_RepoIds::make_id(const Entry& e) const
{
    if (!m_ids.empty()) {
        auto it = m_ids.find(e.decl);
        if (it != m_ids.end())
            return it->second;
    }
    std::vector<AST_Decl*> chain = chain_of(e.decl);
    const std::string* prefix = &m_prefixes[e.prefix];
    std::size_t skip = std::min(e.depth, chain.size() - 1);
    if (!m_typeprefix.empty()) {
        // The innermost scope with a typeprefix, the declaration itself included.
        for (std::size_t i = chain.size(); i-- > 0;) {
            auto it = m_typeprefix.find(first_opening(chain[i]));
            if (it != m_typeprefix.end()) {
                prefix = &it->second;
                skip = i;
                break;
            }
        }
    }
    static const std::string default_version = "1.0";
    const std::string* version = &default_version;
    if (!m_versions.empty()) {
        auto it = m_versions.find(e.decl);
        if (it != m_versions.end())
            version = &it->second;
    }
    std::size_t size = 5 + prefix->size() + version->size();
    for (std::size_t i = skip; i < chain.size(); ++i)
        size += 1 + chain[i]->local_name()->str().size();
    std::string id;
    id.reserve(size);
    id += "IDL:";
    id += *prefix;
    bool first = prefix->empty();
    for (std::size_t i = skip; i < chain.size(); ++i) {
        if (!first)
            id += '/';
        id += chain[i]->local_name()->str();
        first = false;
    }
    id += ':';
    id += *version;
    return id;
}

void IDL_RepoIds::assign()
{
    for (const Entry& e : m_entries)
        if (!e.same)
            e.decl->set_repoID(make_id(e));
    for (const Entry& e : m_entries)
        if (e.same)
            e.decl->set_repoID(e.same->repoID());
}
