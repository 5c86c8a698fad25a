// Writes, at the visitor's level, the declaration of the variable that holds
// an argument's value in a request-based dispatch body, named by the
// argument's C++ name and ended with its line end: "char* a;",
// "CORBA::Long b;", "M::S* c;" (an out value of variable length). The
// variable can be passed to the servant for the argument's direction, and
// a streamable takes its address (see docs/runtime-names.md).
#ifndef VIS_CLIENT_DECLAREARGS_H
#define VIS_CLIENT_DECLAREARGS_H

#include "VIS_CxxTypeVisitor.h"

class AST_Argument;

class VIS_Client_DeclareArgs : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_DeclareArgs(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, AST_Argument* arg);
    const char* name() override { return "VIS_Client_DeclareArgs"; }

protected:
    long visit_type(AST_Type* t) override;

private:
    AST_Argument* m_arg;
};

#endif
