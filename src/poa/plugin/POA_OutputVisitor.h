// Prints one component of a skeleton name: "POA_" before a declaration
// defined at file scope, then its C++ name. Through the resolver's
// scope-walking operations it gives POA_M::I (separator "::") or POA_M_I
// (separator "_").
#ifndef POA_OUTPUTVISITOR_H
#define POA_OUTPUTVISITOR_H

#include "DefaultOutputVisitor.h"

class POA_OutputVisitor : public virtual DefaultOutputVisitor {
public:
    POA_OutputVisitor(std::ostream& os, NameResolver& resolver);

    long visit_AST_Module(AST_Module* n) override;
    long visit_AST_Interface(AST_Interface* n) override;
    long visit_AST_InterfaceFwd(AST_InterfaceFwd* n) override;
    long visit_AST_AbstractInterface(AST_Interface* n) override;
    long visit_AST_Value(AST_Value* n) override;

private:
    long write_poa_name(AST_Decl* d);
};

#endif
