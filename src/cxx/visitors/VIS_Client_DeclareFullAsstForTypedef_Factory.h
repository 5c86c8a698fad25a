// The factory of VIS_Client_DeclareFullAsstForTypedef visitors: the full streamable declaration for a typedef'd type.
#ifndef VIS_CLIENT_DECLAREFULLASSTFORTYPEDEF_FACTORY_H
#define VIS_CLIENT_DECLAREFULLASSTFORTYPEDEF_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_DeclareFullAsstForTypedef;

class VIS_Client_DeclareFullAsstForTypedef_Factory : public VisitorFactoryT<VIS_Client_DeclareFullAsstForTypedef_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_DeclareFullAsstForTypedef* create_VIS_Client_DeclareFullAsstForTypedef(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
