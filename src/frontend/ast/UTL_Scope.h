// A scope of the tree: modules, interfaces, value types, structures,
// unions, enums, exceptions and operations (whose declarations are their
// arguments). A scope owns its declarations, in declaration order, and the
// anonymous types written inside it (sequence<...>, string<N>, arrays),
// which it keeps apart as local types.
#ifndef UTL_SCOPE_H
#define UTL_SCOPE_H

#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class AST_Decl;

class UTL_Scope {
public:
    // What a scope iteration walks: everything, the named declarations
    // only, or the anonymous local types only.
    enum ScopeIterationKind { IK_both = 0, IK_decls = 1, IK_localtypes = 2 };

    UTL_Scope() = default;
    virtual ~UTL_Scope();
    UTL_Scope(const UTL_Scope&) = delete;
    UTL_Scope& operator=(const UTL_Scope&) = delete;

    // The declaration that this scope is (the module, the interface, ...).
    virtual AST_Decl* scope_as_decl() = 0;

    // Takes ownership, appends in declaration order, sets the node's
    // defining scope to this scope, and returns the node.
    AST_Decl* add_decl(std::unique_ptr<AST_Decl> d);
    AST_Decl* add_local_type(std::unique_ptr<AST_Decl> t);

    const std::vector<std::unique_ptr<AST_Decl>>& decls() const { return m_decls; }
    const std::vector<std::unique_ptr<AST_Decl>>& local_types() const { return m_local_types; }

    // The declaration of this one scope whose IDL name is `name`, or null.
    // Case-sensitive; other openings of a module are not searched.
    AST_Decl* lookup_local(const std::string& name) const;

    // A node announced by a forward declaration written in this scope whose
    // definition has not been seen: the scope holds it (with this scope as
    // its defining scope) until the definition moves it into the decls of
    // the scope where the definition stands. Nodes never defined stay here.
    AST_Decl* add_pending(std::unique_ptr<AST_Decl> d);
    // Gives up a pending node; null when this scope does not hold it.
    std::unique_ptr<AST_Decl> take_pending(AST_Decl* d);
    // In the order of their forward declarations.
    const std::list<std::unique_ptr<AST_Decl>>& pending() const { return m_pending; }

private:
    using PendingList = std::list<std::unique_ptr<AST_Decl>>;

    std::vector<std::unique_ptr<AST_Decl>> m_decls;
    std::vector<std::unique_ptr<AST_Decl>> m_local_types;
    PendingList m_pending;
    // Where each pending node is, so that taking one costs the same in a
    // scope of many forward declarations.
    std::unordered_map<const AST_Decl*, PendingList::iterator> m_pending_at;
};

// The declaration a scope belongs to; null for a null scope.
AST_Decl* ScopeAsDecl(UTL_Scope* s);
// The scope a declaration opens; null when it opens none.
UTL_Scope* DeclAsScope(AST_Decl* d);

#endif
