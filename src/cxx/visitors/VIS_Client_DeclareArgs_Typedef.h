// Writes, at the visitor's level, the declaration of a variable of a
// (typedef'd) type as it holds an argument of a request-based dispatch
// body: the same text as VIS_Client_DeclareArgs, for a variable name and a
// passing mode given to the visitor (default: "_yvl_value", in).
#ifndef VIS_CLIENT_DECLAREARGS_TYPEDEF_H
#define VIS_CLIENT_DECLAREARGS_TYPEDEF_H

#include "VIS_CxxTypeVisitor.h"

#include <string>

class VIS_Client_DeclareArgs_Typedef : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_DeclareArgs_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_Client_DeclareArgs_Typedef"; }

    void set_variable(std::string name, CxxTypeMapping::Mode mode)
    {
        m_variable = std::move(name);
        m_mode = mode;
    }

protected:
    long visit_type(AST_Type* t) override;

private:
    std::string m_variable;
    CxxTypeMapping::Mode m_mode = CxxTypeMapping::M_in;
};

#endif
