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
#include "AST_PredefinedType.h"

#include "CxxTypeTexts.h"

#include <set>
#include <string>

class AST_Array;
class AST_EnumVal;
class AST_Sequence;
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
    // Fully scoped names (no `from` scope) whose outermost component is in
    // `nested` are written with a leading "::", so that a nested
    // declaration of that name cannot capture them. The set must outlive
    // the mapping.
    void qualify_against(const std::set<std::string>* nested) { m_nested = nested; }

    // The type at the end of a typedef chain, with a forward declaration
    // replaced by its definition when there is one.
    static AST_Type* resolved(AST_Type* t);
    static Kind kind_of(AST_Type* t);
    static Mode mode_of(AST_Argument::Direction d);
    // True when the type's C++ mapping has a fixed length (no strings,
    // sequences, anys, object references, value types ... inside), looking
    // through typedefs, structure and union members and array elements.
    static bool is_fixed_length(AST_Type* t);
    // A string type's bound, 0 when it is unbounded or not a string.
    static unsigned long string_bound(AST_Type* t);
    // The C++ type of a predefined type, without the "_ptr" of the pseudo
    // objects TypeCode and Principal ("CORBA::Long", "CORBA::TypeCode").
    static const char* predefined_base(AST_PredefinedType::PredefinedType pt);

    // The C++ name of the declared type as seen from the mapping's scope:
    // "CORBA::Long", "M::S", "CORBA::Object", "CORBA::Any",
    // "YV_Cxx::FixedT<9, 2>" for fixed<9,2> ...
    //
    // The texts of name, param, streamable and full_name are made once and
    // kept on the node (CxxTypeTexts): they stay valid as long as the node
    // and the back end's run.
    const std::string& name(AST_Type* declared) const;
    // The parameter type for the mode (M_return: the result type).
    const std::string& param(AST_Type* t, Mode m) const;
    // The type of a variable that holds a value of the mode in a
    // request-based dispatch body, whose address a streamable takes.
    std::string storage(AST_Type* t, Mode m) const;
    // The runtime's streamable class for the type.
    const std::string& streamable(AST_Type* t) const;
    // An expression of type CORBA::TypeCode_ptr naming the type's type code
    // ("&_yv_tc_string_10" for an anonymous bounded string).
    std::string typecode(AST_Type* t) const;
    // The name of the file-level type code made for an anonymous bounded
    // string type ("_yv_tc_string_10"); the same bound always gives the
    // same name.
    static std::string anonymous_string_tc_name(AST_Type* t);

    // The C++ name of a declaration as seen from the mapping's scope (fully
    // scoped from the root: "M::S").
    const std::string& full_name(AST_Decl* d) const;
    // "M::" for a declaration in module M, "" at file scope, as seen from
    // the mapping's scope.
    std::string scope_prefix(AST_Decl* d) const;
    // An enumerator as C++ names it: the scope of its enumeration, then its
    // own name ("M::red" for enum M::Color { red }).
    std::string enumerator(AST_EnumVal* v) const;

    // The C++ type that holds a value of the type inside a structure,
    // union, exception, value box, sequence or array: strings as
    // CORBA::String_var, references as their _var, every other type as its
    // name. An anonymous array's member type is its element's.
    std::string member(AST_Type* t) const;
    // A member declaration without ";": "CORBA::String_var name",
    // "CORBA::Long name[2][3]" for an anonymous array.
    std::string member_declaration(AST_Type* t, const std::string& name) const;
    // The declaration of alias `name` for type `t` without "typedef" and
    // ";": "CORBA::Long name[2][3]" for an anonymous array, "M::S name",
    // "char* name", "YV_Cxx::UnboundedSequence<CORBA::Long> name".
    std::string member_declaration_of_alias(AST_Type* t, const std::string& name) const;
    // The runtime's sequence class of an anonymous sequence type:
    // "YV_Cxx::UnboundedSequence<E>" or "YV_Cxx::BoundedSequence<E, N>".
    std::string sequence(AST_Sequence* s) const;
    // The declarator of an anonymous array's member: "name[2][3]".
    static std::string array_declarator(AST_Array* a, const std::string& name);
    // The C++ array type of an anonymous array: "CORBA::Long[2][3]".
    std::string array_type(AST_Array* a) const;
    // A statement (without ";") that makes member `target`, of the member
    // type of `t`, hold a copy of `source`, an in parameter of type `t`:
    // strings and structures are copied by assignment, references
    // duplicated, arrays copied element-wise.
    std::string assign_member(AST_Type* t, const std::string& target, const std::string& source) const;
    // The parameter type of an accessor that reads a member of the member
    // type of `t`: "const char*" for strings, "const M::S&" for structures,
    // "M::I_ptr" for references, the value for basic types.
    std::string member_reader(AST_Type* t) const;
    // The parameter type of an accessor that sets such a member: the in
    // parameter's type, except for arrays, which are given as a pointer
    // to their first slice ("const YV_Cxx::ArraySlice<M::A>*").
    std::string member_writer(AST_Type* t) const;
    // The result type of the accessor that gives write access to such a
    // member ("M::S&", "YV_Cxx::ArraySlice<M::A>*").
    std::string member_modifier(AST_Type* t) const;
    // True when the member reader hands out a reference, so that a
    // non-const reader giving write access exists as well (structures,
    // unions, sequences, anys, fixed values, arrays).
    static bool has_member_modifier(AST_Type* t);
    // The type code kind constant of a named type ("CORBA::tk_struct").
    static std::string tc_kind(AST_Decl* d);

private:
    const std::string& scoped_name(AST_Decl* d) const { return full_name(d); }
    std::string make_scoped_name(AST_Decl* d) const;
    std::string make_name(AST_Type* declared) const;
    std::string make_param(AST_Type* t, Mode m) const;
    std::string make_streamable(AST_Type* t) const;
    // The kept texts of `d` as this mapping writes them.
    CxxTypeTexts::Entry& texts(AST_Decl* d) const;

    NameResolver& m_resolver;
    UTL_Scope* m_from;
    const std::set<std::string>* m_nested = nullptr;
};

#endif
