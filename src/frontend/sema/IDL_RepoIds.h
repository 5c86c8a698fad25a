// Repository ids ("IDL:prefix/M/I:1.0") of the declarations of the tree.
//
// While the parser reads, it tells this object where scopes and files begin
// and end, which prefix pragmas it meets and which declarations get an id;
// each declaration keeps the prefix in effect where it stands. A prefix set
// by "#pragma prefix" lasts to the end of the scope or file it is written
// in; an included file starts with no prefix. The id is made of the prefix
// and the names of the declaration and its enclosing scopes below the scope
// the prefix was set in. "#pragma ID" and "typeid" give an id outright,
// "#pragma version" replaces the version 1.0, and "typeprefix" gives a scope
// and everything in it a prefix. assign() writes every id into the tree.
#ifndef IDL_REPOIDS_H
#define IDL_REPOIDS_H

#include "IDL_Loc.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

class AST_Decl;

class IDL_RepoIds {
public:
    IDL_RepoIds();

    void enter_scope();
    void leave_scope();
    void enter_file();
    void leave_file();
    // "#pragma prefix" written in a scope `depth` named scopes below the
    // file scope.
    void set_prefix(const std::string& prefix, std::size_t depth);

    // `d` gets an id, under the prefix now in effect. A declaration
    // recorded twice (forward, then defined) takes the later prefix.
    void declared(AST_Decl* d);
    // `d` is forward-declared: as declared(), remembering the prefix.
    void forward_declared(AST_Decl* d);
    // The definition of `d`, which was forward-declared: as declared();
    // reports a prefix other than the forward declaration's.
    void defined(AST_Decl* d, const IDL_Loc& loc);
    // `d` has the id of `same` (later module openings, forward declarations).
    void alias(AST_Decl* d, AST_Decl* same);

    // An explicit id (#pragma ID, typeid). Reports a second, different one.
    void set_id(AST_Decl* d, const std::string& id, const IDL_Loc& loc);
    // "#pragma version": "<major>.<minor>".
    void set_version(AST_Decl* d, const std::string& version, const IDL_Loc& loc);
    // "typeprefix": the scope `d` and everything declared in it.
    void set_typeprefix(AST_Decl* d, const std::string& prefix);

    // Writes the id of every declaration recorded into the tree.
    void assign();

private:
    struct Frame {
        std::size_t prefix = 0;  // index into m_prefixes
        std::size_t depth = 0;
    };
    struct Entry {
        AST_Decl* decl;
        AST_Decl* same;
        std::size_t prefix;
        std::size_t depth;
    };
    std::string make_id(const Entry& e) const;

    std::vector<Frame> m_frames;
    // Every prefix text set, the empty one first.
    std::vector<std::string> m_prefixes;
    // In declaration order; a later entry of the same declaration wins.
    std::vector<Entry> m_entries;
    // Explicit ids and versions, and typeprefixes by the scope named.
    std::unordered_map<const AST_Decl*, std::string> m_ids;
    std::unordered_map<const AST_Decl*, std::string> m_versions;
    std::unordered_map<const AST_Decl*, std::string> m_typeprefix;
    // The prefix (index into m_prefixes) of each forward declaration.
    std::unordered_map<const AST_Decl*, std::size_t> m_forward_prefix;
};

#endif
