// Writes, at the visitor's level, the statement that gives an any the type
// code of a type, with its line end:
//     _yvl_any.type(M::_tc_S);
// The any's name is given to the visitor (default "_yvl_any").
#ifndef VIS_CLIENT_SETTYPECODE_H
#define VIS_CLIENT_SETTYPECODE_H

#include "VIS_CxxTypeVisitor.h"

#include <string>

class VIS_Client_SetTypeCode : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_SetTypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_Client_SetTypeCode"; }

    void set_any_name(std::string any) { m_any = std::move(any); }

protected:
    long visit_type(AST_Type* t) override;

private:
    std::string m_any;
};

#endif
