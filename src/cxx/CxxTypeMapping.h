// The standard OMG IDL-to-C++ mapping of types: what C++ text stands for an
// IDL type in each place the generated code uses it (parameters, results,
// dispatch variables, streamable classes, type codes).
//
// Every text is made from the declared type (a typedef's own name stays in
// the text) while the choice of form follows the kind of the resolved type
// (typedef chains and forward declarations looked through). Names are
// written as seen from the scope the mapping is made for; from the root
// scope (or no scope) they come out fully scoped: M::S.
#ifndef CXXTYPEMAPPING_H
#define CXXTYPEMAPPING_H

#include "AST_Argument.h"

#include <string>

class AST_Type;
class NameResolver;
class UTL_Scope;

class CxxTypeMapping {
public:
    // The kinds that decide a type's C++ forms.
    enum Kind {
        K_unknown,
        K_void,
        K_basic,      // numbers, char, wchar, boolean, octet
        K_string,
        K_wstring,
        K_any,
        K_typecode,
        K_principal,
        K_object,     // CORBA::Object
        K_interface,  // any interface, abstract or not
        K_enum,
        K_struct,
        K_union,
        K_sequence,
        K_array,
        K_fixed,
        K_value,      // value types and value boxes
        K_valuebase,  // CORBA::ValueBase
        K_native,
        K_exception
    };

    // How a value is passed: the three argument directions and the result.
    enum Mode { M_in, M_inout, M_out, M_return };

    CxxTypeMapping(NameResolver& resolver, UTL_Scope* from) : m_resolver(resolver), m_from(from) {}

    // The type at the end of a typedef chain, with a forward declaration
    // replaced by its definition when there is one.
    static AST_Type* resolved(AST_Type* t);
    static Kind kind_of(AST_Type* t);
    static Mode mode_of(AST_Argument::Direction d);
    // A string type's bound, 0 when it is unbounded or not a string.
    static unsigned long string_bound(AST_Type* t);

    // The C++ name of the declared type as seen from the mapping's scope:
    // "CORBA::Long", "M::S", "CORBA::Object", "CORBA::Any", ...
    std::string name(AST_Type* declared) const;
    // The parameter type for the mode (M_return: the result type).
    std::string param(AST_Type* t, Mode m) const;
    // The type of a variable that holds a value of the mode in a
    // request-based dispatch body, whose address a streamable takes.
    std::string storage(AST_Type* t, Mode m) const;
    // The runtime's streamable class for the type.
    std::string streamable(AST_Type* t) const;
    // An expression of type CORBA::TypeCode_ptr naming the type's type code
    // ("&_yv_tc_string_10" for an anonymous bounded string).
    std::string typecode(AST_Type* t) const;
    // The name of the file-level type code made for an anonymous bounded
    // string type ("_yv_tc_string_10"); the same bound always gives the
    // same name.
    static std::string anonymous_string_tc_name(AST_Type* t);

private:
    std::string scoped_name(AST_Decl* d) const;
    // "M::" for a declaration in module M, "" at file scope, as seen from
    // the mapping's scope.
    std::string scope_prefix(AST_Decl* d) const;

    NameResolver& m_resolver;
    UTL_Scope* m_from;
};

#endif
