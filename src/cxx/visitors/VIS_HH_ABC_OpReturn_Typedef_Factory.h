// The factory of VIS_HH_ABC_OpReturn_Typedef visitors: the C++ result type of a typedef'd type.
#ifndef VIS_HH_ABC_OPRETURN_TYPEDEF_FACTORY_H
#define VIS_HH_ABC_OPRETURN_TYPEDEF_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_HH_ABC_OpReturn_Typedef;

class VIS_HH_ABC_OpReturn_Typedef_Factory : public VisitorFactoryT<VIS_HH_ABC_OpReturn_Typedef_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_HH_ABC_OpReturn_Typedef* create_VIS_HH_ABC_OpReturn_Typedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
