// The factory of VIS_Client_DeclareArgs visitors: the declaration of the variable that holds an argument's value in a request-based dispatch body.
#ifndef VIS_CLIENT_DECLAREARGS_FACTORY_H
#define VIS_CLIENT_DECLAREARGS_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_DeclareArgs;

class VIS_Client_DeclareArgs_Factory : public VisitorFactoryT<VIS_Client_DeclareArgs_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_DeclareArgs* create_VIS_Client_DeclareArgs(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, AST_Argument* arg);
};

#endif
