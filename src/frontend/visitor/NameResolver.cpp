#include "NameResolver.h"

#include "AST_Decl.h"
#include "UTL_Scope.h"
#include "Visitor_i.h"

#include <algorithm>
#include <atomic>
#include <ostream>
#include <vector>

namespace {

// The declarations from the outermost enclosing one down to `d` itself,
// leaving out the root.
std::vector<AST_Decl*> name_chain(AST_Decl* d)
{
    std::vector<AST_Decl*> chain;
    chain.reserve(8);  // deeper nesting is rare
    for (AST_Decl* cur = d; cur && cur->node_type() != AST_Decl::NT_root; cur = ScopeAsDecl(cur->defined_in()))
        chain.push_back(cur);
    std::reverse(chain.begin(), chain.end());
    return chain;
}

void write_components(std::ostream& os, const std::vector<AST_Decl*>& chain, std::size_t from, Visitor_i* v,
                      const char* sep)
{
    for (std::size_t i = from; i < chain.size(); ++i) {
        if (i > from)
            os << sep;
        chain[i]->accept(v);
    }
}

} // namespace

NameResolver::NameResolver() : m_number(next_number()) {}

unsigned long long NameResolver::next_number()
{
    static std::atomic<unsigned long long> last{0};
    return ++last;
}

void NameResolver::resolve_clashes(AST_Decl*) {}

const std::string& NameResolver::local_name(AST_Decl* d)
{
    static const std::string none;
    if (!d)
        return none;
    AST_Decl::NameCache& kept = d->name_cache();
    if (kept.local_owner == m_number)
        return *kept.local;
    const std::string& name = d->local_name()->str();
    kept.local = &name;
    if (is_reserved(name)) {
        // Entries of the map stay where they are as it grows.
        auto it = m_changed.find(name);
        if (it == m_changed.end())
            it = m_changed.emplace(name, m_clash_prefix + name).first;
        kept.local = &it->second;
    }
    kept.local_owner = m_number;
    return *kept.local;
}

const std::string& NameResolver::scoped_name(AST_Decl* d)
{
    static const std::string none;
    if (!d || d->node_type() == AST_Decl::NT_root)
        return none;
    AST_Decl::NameCache& kept = d->name_cache();
    if (kept.owner == m_number)
        return kept.text;
    const std::string& outer = scoped_name(ScopeAsDecl(d->defined_in()));
    const std::string& own = local_name(d);
    kept.text.clear();
    kept.text.reserve(outer.size() + 2 + own.size());
    if (!outer.empty())
        kept.text.append(outer).append("::");
    kept.text.append(own);
    kept.owner = m_number;
    return kept.text;
}

// Components are compared as written: identifiers hold no ":", and a
// changed name never equals another IDL name, so "from::" leading d's name
// means the same as from's components leading d's.
std::string NameResolver::name_in_scope(AST_Decl* d, UTL_Scope* from)
{
    const std::string& full = scoped_name(d);
    const std::string& scope = scoped_name(ScopeAsDecl(from));
    if (scope.empty() || full.size() <= scope.size() + 2 || full.compare(0, scope.size(), scope) != 0 ||
        full.compare(scope.size(), 2, "::") != 0)
        return full;
    return full.substr(scope.size() + 2);
}

void NameResolver::output_fully_scoped_name(std::ostream& os, AST_Decl* d) { os << scoped_name(d); }

void NameResolver::output_full_scope(std::ostream& os, AST_Decl* d)
{
    if (d && d->node_type() != AST_Decl::NT_root)
        if (AST_Decl* outer = ScopeAsDecl(d->defined_in()); outer && outer->node_type() != AST_Decl::NT_root)
            os << scoped_name(outer) << "::";
}

void NameResolver::output_fully_scoped_name_with_visitor(std::ostream& os, AST_Decl* d, Visitor_i* v, const char* sep)
{
    write_components(os, name_chain(d), 0, v, sep);
}

void NameResolver::output_name_in_scope_with_visitor(std::ostream& os, AST_Decl* d, UTL_Scope* from, Visitor_i* v,
                                                     const char* sep)
{
    std::vector<AST_Decl*> chain = name_chain(d);
    std::vector<AST_Decl*> from_chain = name_chain(ScopeAsDecl(from));
    // Openings of a reopened module are one scope: compare by name.
    bool encloses = from_chain.size() < chain.size();
    for (std::size_t i = 0; encloses && i < from_chain.size(); ++i)
        encloses = from_chain[i]->local_name()->str() == chain[i]->local_name()->str();
    write_components(os, chain, encloses ? from_chain.size() : 0, v, sep);
}

const char* NameResolver::get_predef_type(AST_PredefinedType::PredefinedType pt)
{
    static const char* const names[] = {"long",  "unsigned long", "long long", "unsigned long long", "short",
                                        "unsigned short", "float", "double", "long double", "char", "wchar",
                                        "boolean", "octet", "any", "void", "TypeCode", "Principal"};
    auto i = static_cast<std::size_t>(pt);
    return i < sizeof(names) / sizeof(names[0]) ? names[i] : "";
}

bool NameResolver::is_reserved(const std::string&) const { return false; }
