// The factory of VIS_Client_DeclareAsst visitors: the name of the streamable class of a type (usage 0x8000: as the type of a streamable pointer).
#ifndef VIS_CLIENT_DECLAREASST_FACTORY_H
#define VIS_CLIENT_DECLAREASST_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_DeclareAsst;

class VIS_Client_DeclareAsst_Factory : public VisitorFactoryT<VIS_Client_DeclareAsst_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_DeclareAsst* create_VIS_Client_DeclareAsst(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, long usage);
};

#endif
