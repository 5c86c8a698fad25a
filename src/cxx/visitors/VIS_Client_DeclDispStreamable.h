// Writes, at the visitor's level, the declaration of a streamable variable
// bound to a value, with its line end:
//     YV_Cxx::StringStreamable _yvvar_a(&a, _yvl_target_orb, 0x21);
// The streamable is named by the streamable name and made from the address
// expression, the ORB variable ("0" when none is given) and the usage value
// in hexadecimal (0x21 in, 0x22 inout, 0x24 out, 0x28 result: dispatch
// usages, with which the streamable owns what a pointer variable holds);
// its class is the type's streamable class (VIS_Client_DeclareAsst).
#ifndef VIS_CLIENT_DECLDISPSTREAMABLE_H
#define VIS_CLIENT_DECLDISPSTREAMABLE_H

#include "VIS_CxxTypeVisitor.h"

#include <string>

class VIS_Client_DeclDispStreamable : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_DeclDispStreamable(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen,
                                  const char* strm_name, const char* var_name, const char* addr_expr,
                                  const char* orb_name, long usage, AST_Decl* decl);
    const char* name() override { return "VIS_Client_DeclDispStreamable"; }

protected:
    long visit_type(AST_Type* t) override;

private:
    std::string m_strm;
    std::string m_addr;
    std::string m_orb;
    long m_usage;
};

#endif
