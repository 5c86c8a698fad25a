// The factory of VIS_HH_ABC_OperationArg visitors: the C++ parameter type of an argument for its direction.
#ifndef VIS_HH_ABC_OPERATIONARG_FACTORY_H
#define VIS_HH_ABC_OPERATIONARG_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_HH_ABC_OperationArg;

class VIS_HH_ABC_OperationArg_Factory : public VisitorFactoryT<VIS_HH_ABC_OperationArg_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_HH_ABC_OperationArg* create_VIS_HH_ABC_OperationArg(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
