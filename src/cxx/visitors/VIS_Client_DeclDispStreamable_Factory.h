// The factory of VIS_Client_DeclDispStreamable visitors: the declaration of a streamable variable bound to a value (the usage value gives the direction: 0x21 in, 0x22 inout, 0x24 out, 0x28 result).
#ifndef VIS_CLIENT_DECLDISPSTREAMABLE_FACTORY_H
#define VIS_CLIENT_DECLDISPSTREAMABLE_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;
class VIS_Client_DeclDispStreamable;

class VIS_Client_DeclDispStreamable_Factory : public VisitorFactoryT<VIS_Client_DeclDispStreamable_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor; the caller owns it and deletes it after use.
    virtual VIS_Client_DeclDispStreamable* create_VIS_Client_DeclDispStreamable(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, const char* strm_name, const char* var_name, const char* addr_expr, const char* orb_name, long usage, AST_Decl* decl);
};

#endif
