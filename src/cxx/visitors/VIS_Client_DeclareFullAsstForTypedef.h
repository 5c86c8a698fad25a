// Writes, at the visitor's level, the declaration that names the streamable
// class of a typedef after the typedef, with its line end:
//     typedef YV_Cxx::VarStreamable<M::Longs> Longs_Streamable;
// Other nodes get nothing.
#ifndef VIS_CLIENT_DECLAREFULLASSTFORTYPEDEF_H
#define VIS_CLIENT_DECLAREFULLASSTFORTYPEDEF_H

#include "VIS_CxxTypeVisitor.h"

class VIS_Client_DeclareFullAsstForTypedef : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_DeclareFullAsstForTypedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_Client_DeclareFullAsstForTypedef"; }

protected:
    long visit_type(AST_Type* t) override;
};

#endif
