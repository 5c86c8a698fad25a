// Names of declarations as a back end writes them. The base class uses the
// IDL names; a back end's resolver changes names that clash with its target
// language by putting the clash prefix in front of them. Clash resolution
// never changes the tree, so several back ends can share one tree.
#ifndef NAMERESOLVER_H
#define NAMERESOLVER_H

#include "AST_PredefinedType.h"

#include <iosfwd>
#include <string>
#include <unordered_map>

class AST_Decl;
class UTL_Scope;
class Visitor_i;

class NameResolver {
public:
    NameResolver() = default;
    virtual ~NameResolver() = default;
    NameResolver(const NameResolver&) = delete;
    NameResolver& operator=(const NameResolver&) = delete;

    void set_clash_prefix(const char* prefix) { m_clash_prefix = prefix ? prefix : ""; }
    const std::string& clash_prefix() const { return m_clash_prefix; }

    // Walks the tree below `root` and decides the name of every declaration.
    virtual void resolve_clashes(AST_Decl* root);

    // The name of `d` after clash resolution. Works for nodes made after
    // resolve_clashes too. The result lives as long as the node (or, for a
    // changed name, as long as the resolver).
    virtual const std::string& local_name(AST_Decl* d);

    // M::I for I in module M (no leading "::").
    virtual void output_fully_scoped_name(std::ostream& os, AST_Decl* d);
    // The scope prefix of `d`: "M::" for I in module M, "" at file scope.
    virtual void output_full_scope(std::ostream& os, AST_Decl* d);
    // Each component of d's scoped name, outermost first, written by having
    // the component's node accept `v`; components joined by `sep`.
    virtual void output_fully_scoped_name_with_visitor(std::ostream& os, AST_Decl* d, Visitor_i* v, const char* sep);
    // As above, but as seen from scope `from`: when `from` is d's defining
    // scope or encloses it, only the components below `from` are written;
    // otherwise the full name is written.
    virtual void output_name_in_scope_with_visitor(std::ostream& os, AST_Decl* d, UTL_Scope* from, Visitor_i* v, const char* sep);

    // The target language's name of a predefined type.
    virtual const char* get_predef_type(AST_PredefinedType::PredefinedType pt);

protected:
    // True when `name` must get the clash prefix in the target language.
    virtual bool is_reserved(const std::string& name) const;

private:
    std::string m_clash_prefix;
    // The name in effect, worked out once. Changed names by IDL name:
    // whether a name changes depends on the name alone, so nodes made after
    // resolve_clashes share the entries.
    const std::string& resolve(AST_Decl* d);
    std::unordered_map<std::string, std::string> m_changed;
    // The names of the tree's nodes, found by resolve_clashes. Tree nodes
    // outlive the run, so no other node can take over an address listed here.
    std::unordered_map<const AST_Decl*, const std::string*> m_tree_names;
};

#endif
