// The names under which the implementation file refers to a skeleton class
// and to its client-side counterpart, rendered as text so that emitters can
// write whole statements with them.
#ifndef POA_SKELETONNAMES_H
#define POA_SKELETONNAMES_H

#include <string>

class AST_Decl;
class NameResolver;
class UTL_Scope;

class POA_SkeletonNames {
public:
    explicit POA_SkeletonNames(NameResolver& resolver) : m_resolver(resolver) {}

    // The skeleton class fully scoped: POA_Bank::Account, POA_Account.
    std::string scoped(AST_Decl* d) const;
    // The skeleton class's own name: Account inside a module, POA_Account
    // at file scope.
    std::string own(AST_Decl* d) const;
    // The skeleton class as seen from `from`.
    std::string seen_from(AST_Decl* d, UTL_Scope* from) const;

    // The client-side name fully scoped (Bank::Account), the scope prefix of
    // a client-side name (Bank::), and the C++ local name (Account).
    std::string client(AST_Decl* d) const;
    std::string client_scope(AST_Decl* d) const;
    std::string local(AST_Decl* d) const;

private:
    NameResolver& m_resolver;
};

#endif
