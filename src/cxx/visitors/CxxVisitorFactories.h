// The visitor factories of the C++ back-end base. Factory V_Factory is
// registered in a generator's finder under its FFKey, the text "V", and
// create_V makes a V visitor on a stream, at an indentation level, for a
// scope and a generator (and what the visitor needs further); the caller
// owns the visitor and deletes it after use. The class names, keys and
// tags are the ones plug-ins look factories up by.
//
// The keys of the typedef variants (DeclareArgs_Typedef, OpReturn_Typedef,
// OpArg_Typedef, DeclareFullAsstForTypedef) stay registered, as the
// plug-in's finder must hold them, but their factories create nothing:
// no emitter asks for them.
#ifndef CXXVISITORFACTORIES_H
#define CXXVISITORFACTORIES_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class AST_Argument;
class AST_Decl;
class CodeGenerator;
class UTL_Scope;

// The parameters every create_V begins with.
#define YV_FACTORY_PARAMS std::ostream &os, int level, UTL_Scope *scope, CodeGenerator *gen

// A factory class of visitor V whose create_V takes `params`.
#define YV_FACTORY(V, params)                                  \
    class V;                                                           \
    class V##_Factory : public VisitorFactoryT<V##_Factory> {          \
    public:                                                            \
        static const char* const FFKey;                                \
        static char narrow_tag;                                        \
        virtual V* create_##V params;                                  \
    }

// A factory class that is only a key in the finder.
#define YV_FACTORY_KEY(V)                                              \
    class V##_Factory : public VisitorFactoryT<V##_Factory> {          \
    public:                                                            \
        static const char* const FFKey;                                \
        static char narrow_tag;                                        \
    }

// The definitions of their static members and of create_V, for a source
// file that includes the visitor's header.
#define YV_FACTORY_KEY_DEFINITION(V)                                   \
    const char* const V##_Factory::FFKey = #V;                         \
    char V##_Factory::narrow_tag = 0
#define YV_FACTORY_DEFINITION(V, params, args)                 \
    YV_FACTORY_KEY_DEFINITION(V);                                      \
    V* V##_Factory::create_##V params { return new V args; }

// The declaration of a streamable variable bound to a value (the usage
// value gives the direction: 0x21 in, 0x22 inout, 0x24 out, 0x28 result).
YV_FACTORY(VIS_Client_DeclDispStreamable,
                   (YV_FACTORY_PARAMS, const char* strm_name, const char* var_name, const char* addr_expr,
                    const char* orb_name, long usage, AST_Decl* decl));
// The declaration of the variable that holds an argument's value in a
// request-based dispatch body.
YV_FACTORY(VIS_Client_DeclareArgs, (YV_FACTORY_PARAMS, AST_Argument* arg));
// The name of the streamable class of a type (usage 0x8000: as the type of
// a streamable pointer).
YV_FACTORY(VIS_Client_DeclareAsst, (YV_FACTORY_PARAMS, long usage));
// The statement that sets an any's type code for a type.
YV_FACTORY(VIS_Client_SetTypeCode, (YV_FACTORY_PARAMS));
// The definition of a type's type code (used for anonymous strings).
YV_FACTORY(VIS_Client_TypeCode, (YV_FACTORY_PARAMS));
// The C++ result type of a type, as in an operation's declaration.
YV_FACTORY(VIS_HH_ABC_OpReturn, (YV_FACTORY_PARAMS));
// The C++ parameter type of an argument for its direction.
YV_FACTORY(VIS_HH_ABC_OperationArg, (YV_FACTORY_PARAMS));

YV_FACTORY_KEY(VIS_Client_DeclareArgs_Typedef);
YV_FACTORY_KEY(VIS_Client_DeclareFullAsstForTypedef);
YV_FACTORY_KEY(VIS_HH_ABC_OpArg_Typedef);
YV_FACTORY_KEY(VIS_HH_ABC_OpReturn_Typedef);

#endif
