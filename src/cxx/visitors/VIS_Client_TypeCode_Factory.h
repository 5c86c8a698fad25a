// The factory of VIS_Client_TypeCode visitors: the definition of a type's type code (used for anonymous strings).
#ifndef VIS_CLIENT_TYPECODE_FACTORY_H
#define VIS_CLIENT_TYPECODE_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_TypeCode;

class VIS_Client_TypeCode_Factory : public VisitorFactoryT<VIS_Client_TypeCode_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_TypeCode* create_VIS_Client_TypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
