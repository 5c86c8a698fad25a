// Prints one component of a skeleton name: "POA_" before a declaration
// defined at file scope, then its C++ name. Through the resolver's
// scope-walking operations it gives POA_M::I (separator "::") or POA_M_I
// (separator "_").
#ifndef POA_OUTPUTVISITOR_H
#define POA_OUTPUTVISITOR_H

#include "DefaultOutputVisitor.h"

#include <string>

class POA_OutputVisitor : public virtual DefaultOutputVisitor {
public:
    POA_OutputVisitor(std::ostream& os, NameResolver& resolver);

    long visit_AST_Module(AST_Module* n) override;
    long visit_AST_Interface(AST_Interface* n) override;
    long visit_AST_InterfaceFwd(AST_InterfaceFwd* n) override;
    long visit_AST_AbstractInterface(AST_Interface* n) override;
    long visit_AST_Value(AST_Value* n) override;

    // The skeleton-side names that emitters write, each made by a fresh
    // visitor of this class:
    // the one component of `d` (POA_I at file scope, I inside a module);
    static std::string skeleton_name(NameResolver& resolver, AST_Decl* d);
    // d's name as seen from scope `from`, components joined by `sep`;
    static std::string skeleton_name_in_scope(NameResolver& resolver, AST_Decl* d, UTL_Scope* from, const char* sep);
    // d's fully scoped name, components joined by `sep` (POA_M::I, POA_M_I).
    static std::string skeleton_scoped_name(NameResolver& resolver, AST_Decl* d, const char* sep);

private:
    long write_poa_name(AST_Decl* d);
};

#endif
