// The factory of VIS_Client_DeclareArgs_Typedef visitors: the declaration of a variable of a typedef'd type, for an argument.
#ifndef VIS_CLIENT_DECLAREARGS_TYPEDEF_FACTORY_H
#define VIS_CLIENT_DECLAREARGS_TYPEDEF_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_DeclareArgs_Typedef;

class VIS_Client_DeclareArgs_Typedef_Factory : public VisitorFactoryT<VIS_Client_DeclareArgs_Typedef_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_DeclareArgs_Typedef* create_VIS_Client_DeclareArgs_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
