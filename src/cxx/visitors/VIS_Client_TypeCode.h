// Writes, at file level of an implementation file, the definition of the
// type code of an anonymous bounded string type:
//     #ifndef _YV_TC_DEFINED_string_10
//     #define _YV_TC_DEFINED_string_10
//     static CORBA::TypeCode _yv_tc_string_10(CORBA::tk_string, 10);
//     #endif
// The guard makes a second string of the same bound in the same file reuse
// the first definition. Other types have their type codes in the client
// files and get nothing here.
#ifndef VIS_CLIENT_TYPECODE_H
#define VIS_CLIENT_TYPECODE_H

#include "VIS_CxxTypeVisitor.h"

class VIS_Client_TypeCode : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_TypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    const char* name() override { return "VIS_Client_TypeCode"; }

protected:
    long visit_type(AST_Type* t) override;
};

#endif
