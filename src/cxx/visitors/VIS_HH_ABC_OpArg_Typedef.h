// Writes the C++ parameter type of a (typedef'd) type for a passing mode
// given to the visitor (default in), inline: "const M::S&", "M::L_out", ...
#ifndef VIS_HH_ABC_OPARG_TYPEDEF_H
#define VIS_HH_ABC_OPARG_TYPEDEF_H

#include "VIS_CxxTypeVisitor.h"

class VIS_HH_ABC_OpArg_Typedef : public virtual VIS_CxxTypeVisitor {
public:
    VIS_HH_ABC_OpArg_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_HH_ABC_OpArg_Typedef"; }

    void set_mode(CxxTypeMapping::Mode m) { m_mode = m; }

protected:
    long visit_type(AST_Type* t) override;

private:
    CxxTypeMapping::Mode m_mode = CxxTypeMapping::M_in;
};

#endif
