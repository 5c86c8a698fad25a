// The factory of VIS_Client_SetTypeCode visitors: the statement that sets an any's type code for a type.
#ifndef VIS_CLIENT_SETTYPECODE_FACTORY_H
#define VIS_CLIENT_SETTYPECODE_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_SetTypeCode;

class VIS_Client_SetTypeCode_Factory : public VisitorFactoryT<VIS_Client_SetTypeCode_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_SetTypeCode* create_VIS_Client_SetTypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
