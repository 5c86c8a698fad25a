#include "IDL_Names.h"

#include "AST_Decl.h"
#include "AST_Root.h"
#include "IDL_Diagnostics.h"
#include "UTL_Scope.h"

#include <algorithm>

struct IDL_Names::Table {
    UTL_Scope* parent = nullptr;
    std::unordered_map<std::string, AST_Decl*> exact;
    std::unordered_map<std::string, AST_Decl*> folded;
    std::vector<Table*> bases;
};

namespace {

std::string fold(const std::string& s)
{
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

// Declarations a name in IDL text can refer to (members such as fields,
// arguments and operations are never named from elsewhere).
bool referable(const AST_Decl* d)
{
    switch (d->node_type()) {
    case AST_Decl::NT_field:
    case AST_Decl::NT_argument:
    case AST_Decl::NT_attr:
    case AST_Decl::NT_op:
    case AST_Decl::NT_union_branch:
    case AST_Decl::NT_state_member:
    case AST_Decl::NT_factory:
        return false;
    default:
        return true;
    }
}

std::string scoped_name_of(AST_Decl* d)
{
    std::string out;
    for (AST_Decl* cur = d; cur && cur->node_type() != AST_Decl::NT_root; cur = ScopeAsDecl(cur->defined_in()))
        out = cur->local_name()->str() + (out.empty() ? "" : "::" + out);
    return out;
}

void error(IDL_Diag id, const IDL_Loc& loc, std::initializer_list<std::string> args)
{
    IDL_Diagnostics::error(id, loc.file_name(), loc.line, loc.column, args);
}

} // namespace

IDL_Names::IDL_Names(AST_Root* root) : m_root(root) { add_scope(root, nullptr); }

IDL_Names::~IDL_Names() = default;

IDL_Names::Table* IDL_Names::table(UTL_Scope* s) const
{
    auto it = m_table_of.find(s);
    return it == m_table_of.end() ? nullptr : it->second;
}

void IDL_Names::add_scope(UTL_Scope* s, UTL_Scope* parent)
{
    m_tables.push_back(std::make_unique<Table>());
    m_tables.back()->parent = parent;
    m_table_of[s] = m_tables.back().get();
}

void IDL_Names::add_opening(UTL_Scope* opening, UTL_Scope* first, UTL_Scope* parent)
{
    (void)parent;
    Table* t = table(first);
    if (!t) {
        add_scope(opening, parent);
        return;
    }
    m_table_of[opening] = t;
}

void IDL_Names::set_bases(UTL_Scope* s, std::vector<UTL_Scope*> bases)
{
    Table* t = table(s);
    if (!t)
        return;
    t->bases.clear();
    for (UTL_Scope* b : bases)
        if (Table* bt = table(b))
            if (bt != t)
                t->bases.push_back(bt);
}

UTL_Scope* IDL_Names::parent(UTL_Scope* s) const
{
    Table* t = table(s);
    return t ? t->parent : nullptr;
}

AST_Decl* IDL_Names::find_local(UTL_Scope* s, const std::string& name) const
{
    Table* t = table(s);
    if (!t)
        return nullptr;
    auto it = t->exact.find(name);
    return it == t->exact.end() ? nullptr : it->second;
}

AST_Decl* IDL_Names::find_local_folded(UTL_Scope* s, const std::string& name) const
{
    Table* t = table(s);
    if (!t)
        return nullptr;
    auto it = t->folded.find(fold(name));
    return it == t->folded.end() ? nullptr : it->second;
}

bool IDL_Names::declare(UTL_Scope* s, const std::string& name, AST_Decl* d, const IDL_Loc& loc)
{
    Table* t = table(s);
    if (!t)
        return false;
    auto it = t->folded.find(fold(name));
    if (it != t->folded.end()) {
        const std::string& old = it->second->local_name()->str();
        if (old == name)
            error(IDL_Diag::REDEFINITION, loc, {name});
        else
            error(IDL_Diag::REDEFINITION_CASE, loc, {name, old});
        return false;
    }
    t->exact.emplace(name, d);
    t->folded.emplace(fold(name), d);
    return true;
}

void IDL_Names::enter(UTL_Scope* s, const std::string& name, AST_Decl* d)
{
    if (Table* t = table(s)) {
        t->exact.emplace(name, d);
        t->folded.emplace(fold(name), d);
    }
}

void IDL_Names::add_builtin(const std::string& name, AST_Decl* d, bool unqualified_too)
{
    m_corba_builtins[name] = d;
    if (unqualified_too)
        m_builtins[name] = d;
}

AST_Decl* IDL_Names::builtin(const IDL_ScopedName& n) const
{
    if (n.parts.size() == 1) {
        auto it = m_builtins.find(n.parts[0]);
        return it == m_builtins.end() ? nullptr : it->second;
    }
    if (n.parts.size() == 2 && n.parts[0] == "CORBA") {
        auto it = m_corba_builtins.find(n.parts[1]);
        return it == m_corba_builtins.end() ? nullptr : it->second;
    }
    return nullptr;
}

void IDL_Names::collect(Table* t, const std::string& name, std::vector<AST_Decl*>& found, std::vector<Table*>& visited)
{
    if (std::find(visited.begin(), visited.end(), t) != visited.end())
        return;
    visited.push_back(t);
    auto it = t->exact.find(name);
    if (it != t->exact.end()) {
        if (std::find(found.begin(), found.end(), it->second) == found.end())
            found.push_back(it->second);
        return;
    }
    for (Table* b : t->bases)
        collect(b, name, found, visited);
}

AST_Decl* IDL_Names::member(Table* t, const std::string& name, AST_Decl*& other, const IDL_Loc& loc, bool& failed)
{
    other = nullptr;
    auto it = t->exact.find(name);
    if (it != t->exact.end())
        return it->second;
    auto f = t->folded.find(fold(name));
    if (f != t->folded.end() && referable(f->second)) {
        error(IDL_Diag::NAME_CASE_MISMATCH, loc, {name, f->second->local_name()->str()});
        failed = true;
        return nullptr;
    }
    if (t->bases.empty())
        return nullptr;
    std::vector<AST_Decl*> found;
    std::vector<Table*> visited{t};
    for (Table* b : t->bases)
        collect(b, name, found, visited);
    if (found.empty())
        return nullptr;
    if (found.size() > 1)
        other = found[1];
    return found[0];
}

AST_Decl* IDL_Names::resolve(UTL_Scope* from, const IDL_ScopedName& n)
{
    if (n.parts.empty())
        return nullptr;
    AST_Decl* d = nullptr;
    AST_Decl* other = nullptr;
    bool failed = false;
    if (n.global) {
        d = member(table(m_root), n.parts[0], other, n.locs[0], failed);
    } else {
        for (UTL_Scope* s = from; s && !d && !failed; s = parent(s))
            if (Table* t = table(s))
                d = member(t, n.parts[0], other, n.locs[0], failed);
    }
    for (std::size_t i = 0; !failed; ++i) {
        // d is what parts[0..i] name.
        if (!d) {
            if (AST_Decl* b = builtin(n))
                return b;
            IDL_ScopedName upto = n;
            upto.parts.resize(i + 1);
            error(IDL_Diag::UNDEFINED_NAME, n.locs[i], {upto.text()});
            return nullptr;
        }
        if (other) {
            error(IDL_Diag::AMBIGUOUS_NAME, n.locs[i], {n.parts[i], scoped_name_of(d), scoped_name_of(other)});
            return nullptr;
        }
        if (i + 1 == n.parts.size())
            return d;
        Table* t = table(DeclAsScope(d));
        if (!t) {
            if (AST_Decl* b = builtin(n))
                return b;
            error(IDL_Diag::NOT_A_SCOPE, n.locs[i + 1], {scoped_name_of(d), n.parts[i + 1]});
            return nullptr;
        }
        d = member(t, n.parts[i + 1], other, n.locs[i + 1], failed);
    }
    return nullptr;
}
