// Writes the C++ parameter type of an argument for its direction, inline:
// accepted by an argument, it writes its type's form for the argument's
// direction; accepted by a type, the form for the mode given to the visitor
// (default in).
#ifndef VIS_HH_ABC_OPERATIONARG_H
#define VIS_HH_ABC_OPERATIONARG_H

#include "VIS_CxxTypeVisitor.h"

class VIS_HH_ABC_OperationArg : public virtual VIS_CxxTypeVisitor {
public:
    VIS_HH_ABC_OperationArg(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_HH_ABC_OperationArg"; }

    void set_mode(CxxTypeMapping::Mode m) { m_mode = m; }
    long visit_AST_Argument(AST_Argument* n) override;

protected:
    long visit_type(AST_Type* t) override;

private:
    CxxTypeMapping::Mode m_mode = CxxTypeMapping::M_in;
};

#endif
