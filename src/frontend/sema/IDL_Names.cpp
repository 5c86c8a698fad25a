#include "IDL_Names.h"

#include "AST_Decl.h"
#include "AST_Root.h"
#include "IDL_Diagnostics.h"
#include "UTL_Scope.h"

#include <algorithm>

namespace {

char lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

std::size_t IDL_Names::FoldHash::operator()(std::string_view s) const
{
    std::size_t h = 14695981039346656037ULL;
    for (char c : s)
        h = (h ^ static_cast<unsigned char>(lower(c))) * 1099511628211ULL;
    return h;
}

bool IDL_Names::FoldEqual::operator()(std::string_view a, std::string_view b) const
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i]))
            return false;
    return true;
}

struct IDL_Names::Table {
    // Keyed by views of the declarations' own names, ignoring case.
    std::unordered_map<std::string_view, AST_Decl*, FoldHash, FoldEqual> names;
    std::vector<Table*> bases;
    // The lookup that last visited this table (see collect).
    unsigned long visited = 0;
    // Some scope inherits from this one.
    bool is_base = false;
    // Names this scope has used for declarations of enclosing scopes; they
    // cannot be declared here afterwards.
    std::unordered_map<std::string_view, AST_Decl*, FoldHash, FoldEqual> introduced;
};

namespace {

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

IDL_Names::IDL_Names(AST_Root* root) : m_root(root) { add_scope(root); }

IDL_Names::~IDL_Names() = default;

IDL_Names::Table* IDL_Names::table(UTL_Scope* s) const
{
    auto it = m_table_of.find(s);
    return it == m_table_of.end() ? nullptr : it->second;
}

AST_Decl* IDL_Names::find(const Table* t, std::string_view name)
{
    auto it = t->names.find(name);
    return it == t->names.end() ? nullptr : it->second;
}

void IDL_Names::add_scope(UTL_Scope* s)
{
    m_tables.push_back(std::make_unique<Table>());
    m_table_of[s] = m_tables.back().get();
}

void IDL_Names::add_opening(UTL_Scope* opening, UTL_Scope* first)
{
    if (Table* t = table(first))
        m_table_of[opening] = t;
    else
        add_scope(opening);
}

void IDL_Names::set_bases(UTL_Scope* s, std::vector<UTL_Scope*> bases)
{
    Table* t = table(s);
    if (!t)
        return;
    t->bases.clear();
    for (UTL_Scope* b : bases) {
        Table* bt = table(b);
        if (!bt || bt == t)
            continue;
        t->bases.push_back(bt);
        if (!bt->is_base) {
            bt->is_base = true;
            for (const auto& entry : bt->names)
                ++m_base_names[entry.first];
        }
    }
}

bool IDL_Names::in_some_base(std::string_view name) const { return m_base_names.count(name) != 0; }

UTL_Scope* IDL_Names::parent(UTL_Scope* s)
{
    AST_Decl* d = ScopeAsDecl(s);
    return d ? d->defined_in() : nullptr;
}

AST_Decl* IDL_Names::find_local(UTL_Scope* s, const std::string& name) const
{
    Table* t = table(s);
    AST_Decl* d = t ? find(t, name) : nullptr;
    return d && d->local_name()->str() == name ? d : nullptr;
}

AST_Decl* IDL_Names::find_local_folded(UTL_Scope* s, const std::string& name) const
{
    Table* t = table(s);
    return t ? find(t, name) : nullptr;
}

bool IDL_Names::declare(UTL_Scope* s, const std::string& name, AST_Decl* d, const IDL_Loc& loc)
{
    Table* t = table(s);
    if (!t)
        return false;
    if (AST_Decl* old = find(t, name)) {
        const std::string& old_name = old->local_name()->str();
        if (old_name == name)
            error(IDL_Diag::REDEFINITION, loc, {name});
        else
            error(IDL_Diag::REDEFINITION_CASE, loc, {name, old_name});
        return false;
    }
    // A name this scope has already used for a declaration of an enclosing
    // scope. Members nobody names (fields, operations, attributes) may take
    // it: no use can mistake them for that declaration.
    if (!t->introduced.empty() && referable(d)) {
        auto it = t->introduced.find(name);
        if (it != t->introduced.end()) {
            error(IDL_Diag::INTRODUCED_NAME, loc, {name, scoped_name_of(it->second)});
            return false;
        }
    }
    // A module, interface, value type, structure, union or exception cannot
    // hold a declaration of its own name.
    if (AST_Decl* self = ScopeAsDecl(s)) {
        switch (self->node_type()) {
        case AST_Decl::NT_module:
        case AST_Decl::NT_interface:
        case AST_Decl::NT_value:
        case AST_Decl::NT_struct:
        case AST_Decl::NT_union:
        case AST_Decl::NT_except:
            if (FoldEqual{}(self->local_name()->str(), name))
                error(IDL_Diag::NAME_OF_ENCLOSING_SCOPE, loc, {name, self->local_name()->str()});
            break;
        default:
            break;
        }
    }
    t->names.emplace(std::string_view(d->local_name()->str()), d);
    if (t->is_base)
        ++m_base_names[std::string_view(d->local_name()->str())];
    return true;
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

void IDL_Names::collect(Table* t, const std::string& name, std::vector<AST_Decl*>& found)
{
    // Depth-first through the bases in declaration order; a base that
    // declares the name hides its own bases. Iterative, so a long
    // inheritance chain cannot exhaust the stack.
    std::vector<Table*> stack{t};
    while (!stack.empty()) {
        Table* cur = stack.back();
        stack.pop_back();
        if (cur->visited == m_lookup)
            continue;
        cur->visited = m_lookup;
        AST_Decl* d = find(cur, name);
        if (d && d->local_name()->str() == name) {
            if (std::find(found.begin(), found.end(), d) == found.end())
                found.push_back(d);
            continue;
        }
        stack.insert(stack.end(), cur->bases.rbegin(), cur->bases.rend());
    }
}

AST_Decl* IDL_Names::inherited_member(UTL_Scope* s, const std::string& name)
{
    Table* t = table(s);
    if (!t || t->bases.empty() || !in_some_base(name))
        return nullptr;
    t->visited = ++m_lookup;
    std::vector<Table*> stack(t->bases.rbegin(), t->bases.rend());
    while (!stack.empty()) {
        Table* cur = stack.back();
        stack.pop_back();
        if (cur->visited == m_lookup)
            continue;
        cur->visited = m_lookup;
        AST_Decl* d = find(cur, name);
        if (d && (d->node_type() == AST_Decl::NT_op || d->node_type() == AST_Decl::NT_attr))
            return d;
        stack.insert(stack.end(), cur->bases.rbegin(), cur->bases.rend());
    }
    return nullptr;
}

AST_Decl* IDL_Names::member(Table* t, const std::string& name, AST_Decl*& other, const IDL_Loc& loc, bool& failed)
{
    other = nullptr;
    if (AST_Decl* d = find(t, name)) {
        if (d->local_name()->str() == name)
            return d;
        if (referable(d)) {
            error(IDL_Diag::NAME_CASE_MISMATCH, loc, {name, d->local_name()->str()});
            failed = true;
            return nullptr;
        }
    }
    if (t->bases.empty() || !in_some_base(name))
        return nullptr;
    std::vector<AST_Decl*> found;
    t->visited = ++m_lookup;
    for (Table* b : t->bases)
        collect(b, name, found);
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
        // The first scope with names is the one using the name; when the
        // name is found further out, it is introduced there.
        Table* user = nullptr;
        for (UTL_Scope* s = from; s && !d && !failed; s = parent(s))
            if (Table* t = table(s)) {
                d = member(t, n.parts[0], other, n.locs[0], failed);
                if (!user)
                    user = t;
                else if (d)
                    user->introduced.try_emplace(std::string_view(d->local_name()->str()), d);
            }
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
