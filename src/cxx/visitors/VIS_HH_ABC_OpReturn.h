// Writes the C++ result type of a type, as in an operation's declaration,
// inline (no indentation, no line end): "CORBA::Long", "char*", "M::S*",
// "M::A_slice*", "void", ...
#ifndef VIS_HH_ABC_OPRETURN_H
#define VIS_HH_ABC_OPRETURN_H

#include "VIS_CxxTypeVisitor.h"

class VIS_HH_ABC_OpReturn : public virtual VIS_CxxTypeVisitor {
public:
    VIS_HH_ABC_OpReturn(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_HH_ABC_OpReturn"; }

protected:
    long visit_type(AST_Type* t) override;
};

#endif
