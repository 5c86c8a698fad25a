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
    NameResolver();
    virtual ~NameResolver() = default;
    NameResolver(const NameResolver&) = delete;
    NameResolver& operator=(const NameResolver&) = delete;

    void set_clash_prefix(const char* prefix) { m_clash_prefix = prefix ? prefix : ""; }
    const std::string& clash_prefix() const { return m_clash_prefix; }
    // This resolver's number, unique in the process: what a back end keeps
    // on nodes it marks with it (AST_Decl::Kept).
    unsigned long long number() const { return m_number; }

    // Settles the names of the tree below `root` before any text is
    // written. Whether a name changes depends on the name alone, so the base
    // decides each name when it is asked for and has nothing to do here;
    // a resolver whose names depend on more can walk the tree.
    virtual void resolve_clashes(AST_Decl* root);

    // The name of `d` after clash resolution. Back ends ask for names
    // millions of times: the reserved words are looked up once per node, and
    // the answer is kept on the node (AST_Decl::name_cache). The result
    // lives as long as the node (or, for a changed name, as long as the
    // resolver).
    virtual const std::string& local_name(AST_Decl* d);

    // M::I for I in module M (no leading "::"), made once per node and kept
    // on the node (the result lives as long as the node).
    const std::string& scoped_name(AST_Decl* d);
    // `d`'s name as seen from scope `from`: when `from` is d's defining
    // scope or encloses it, only the components below `from`; otherwise
    // (and from the root or no scope) the full name.
    std::string name_in_scope(AST_Decl* d, UTL_Scope* from);

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
    // This resolver's mark on the names it keeps on nodes: unique in the
    // process, so that a name kept by another resolver is never taken.
    const unsigned long long m_number;
    static unsigned long long next_number();
    // Changed names by IDL name, made on first use.
    std::unordered_map<std::string, std::string> m_changed;
};

#endif
