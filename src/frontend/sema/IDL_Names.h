// The names every scope of the tree declares, and the lookup of scoped names
// by the IDL rules: outward through the enclosing scopes, into the bases of
// interfaces and value types, across every opening of a module.
//
// Each scope has a hash table of its names, filled as declarations are
// added, so lookup does not grow with scope size. The table hashes and
// compares names ignoring case (one scope never holds two names that differ
// only in case) and keys them by views of the declarations' own names. All
// openings of one module share one table, which therefore holds exactly the
// openings seen so far. Operations and factories have no table: their
// arguments are never looked up by name.
#ifndef IDL_NAMES_H
#define IDL_NAMES_H

#include "IDL_Loc.h"
#include "IDL_ScopedName.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class AST_Decl;
class AST_Root;
class UTL_Scope;

class IDL_Names {
public:
    explicit IDL_Names(AST_Root* root);
    ~IDL_Names();
    IDL_Names(const IDL_Names&) = delete;
    IDL_Names& operator=(const IDL_Names&) = delete;

    // A new scope.
    void add_scope(UTL_Scope* s);
    // A later opening of the module whose first opening is `first`.
    void add_opening(UTL_Scope* opening, UTL_Scope* first);
    // The bases of an interface or value type (interfaces it supports too),
    // searched after its own names.
    void set_bases(UTL_Scope* s, std::vector<UTL_Scope*> bases);

    // The declaration named exactly `name` in the scope itself (every opening
    // of a module), or null.
    AST_Decl* find_local(UTL_Scope* s, const std::string& name) const;
    // The same, ignoring case.
    AST_Decl* find_local_folded(UTL_Scope* s, const std::string& name) const;

    // An operation or attribute named `name` (ignoring case) that a base of
    // `s`, direct or not, declares; null when none does.
    AST_Decl* inherited_member(UTL_Scope* s, const std::string& name);

    // Enters `d` under `name` in scope `s` unless a declaration of the same
    // name, ignoring case, is there already; then reports the clash at
    // `loc` and answers false.
    bool declare(UTL_Scope* s, const std::string& name, AST_Decl* d, const IDL_Loc& loc);

    // A name the language predefines, found when nothing declared matches:
    // `name` alone ("TypeCode") or qualified by CORBA ("CORBA::TypeCode").
    void add_builtin(const std::string& name, AST_Decl* d, bool unqualified_too);

    // Resolves a scoped name as seen from scope `from`. Reports an undefined
    // or ambiguous name at the offending component and answers null.
    AST_Decl* resolve(UTL_Scope* from, const IDL_ScopedName& n);

    // The scope enclosing `s`.
    static UTL_Scope* parent(UTL_Scope* s);

private:
    // Hashing and comparing names ignoring case.
    struct FoldHash {
        std::size_t operator()(std::string_view s) const;
    };
    struct FoldEqual {
        bool operator()(std::string_view a, std::string_view b) const;
    };
    struct Table;
    // True when some scope that others inherit from declares `name`: only
    // then can a lookup through bases find it.
    bool in_some_base(std::string_view name) const;
    Table* table(UTL_Scope* s) const;
    static AST_Decl* find(const Table* t, std::string_view name);
    // A member of the scope of `t`, searching the bases; sets `ambiguous`
    // (with the two candidates) when bases give different declarations.
    AST_Decl* member(Table* t, const std::string& name, AST_Decl*& other, const IDL_Loc& loc, bool& failed);
    // Adds to `found` what the bases below `t` declare as `name`, visiting
    // each table once per lookup.
    void collect(Table* t, const std::string& name, std::vector<AST_Decl*>& found);
    AST_Decl* builtin(const IDL_ScopedName& n) const;

    UTL_Scope* m_root;
    std::vector<std::unique_ptr<Table>> m_tables;
    std::unordered_map<const UTL_Scope*, Table*> m_table_of;
    // Names declared in scopes that others inherit from, with counts.
    std::unordered_map<std::string_view, unsigned, FoldHash, FoldEqual> m_base_names;
    // Numbers the lookups through bases, to mark tables visited.
    unsigned long m_lookup = 0;
    std::unordered_map<std::string, AST_Decl*> m_builtins;
    std::unordered_map<std::string, AST_Decl*> m_corba_builtins;
};

#endif
