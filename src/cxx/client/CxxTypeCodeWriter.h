// The type codes of the client source file. Every type code is a static
// object made by a constexpr maker of CORBA::TypeCode, so that it is
// constant-initialised; a member names its type through the address of a
// TypeCode_ptr constant, so that recursive types are plain pointer cycles
// and files may refer to each other's type codes in any order:
//
//   static const CORBA::TypeCode::Member _yv_tcm_M_S[] = {
//       {"a", &CORBA::_tc_long, 0, 0},
//       {"b", &_yv_tc_1, 0, 0},
//   };
//   static CORBA::TypeCode _yv_tco_M_S = CORBA::TypeCode::yv_struct(CORBA::tk_struct, "IDL:M/S:1.0", "S", _yv_tcm_M_S, 2);
//   const CORBA::TypeCode_ptr M::_tc_S = &_yv_tco_M_S;
//
// Anonymous types (sequences, arrays, bounded strings, fixed) get file-level
// objects of their own, one per distinct type, written before their first
// use:
//
//   static CORBA::TypeCode _yv_tco_1 = CORBA::TypeCode::yv_sequence(&CORBA::_tc_long, 0);
//   static const CORBA::TypeCode_ptr _yv_tc_1 = &_yv_tco_1;
//
// So do the named types whose _tc_ constant no generated header declares
// (interfaces only ever forward declared, names the runtime defines).
// One writer serves a whole source file.
#ifndef CXXTYPECODEWRITER_H
#define CXXTYPECODEWRITER_H

#include "CxxTypeMapping.h"

#include <map>
#include <set>
#include <string>
#include <vector>

class AST_Decl;
class AST_Type;
class CxxPrinter;
class NameResolver;

class CxxTypeCodeWriter {
public:
    explicit CxxTypeCodeWriter(NameResolver& resolver) : m_map(resolver, nullptr), m_resolver(resolver) {}

    // Writes the definition of the _tc_ constant of named type `d` (a
    // structure, union, enumeration, exception, typedef, interface, value
    // type, value box or native), preceded by what it refers to.
    void write_definition(CxxPrinter& p, AST_Decl* d);

    // The address of the TypeCode_ptr constant that names type `t`
    // ("&CORBA::_tc_long", "&M::_tc_S", "&_yv_tc_1"), writing the file-level
    // type code of an anonymous type first when it is not written yet.
    std::string address(CxxPrinter& p, AST_Type* t);

private:
    // Writes the member table and the object of named type `d` under the
    // object name `object`.
    void write_object(CxxPrinter& p, AST_Decl* d, const std::string& object);
    // The constant of an anonymous type made by `maker`, written when new.
    std::string anonymous(CxxPrinter& p, const std::string& maker);
    // The constant of a file-level copy of named type `d`'s type code.
    std::string copy_of(CxxPrinter& p, AST_Decl* d);
    // True when a generated header declares `d`'s _tc_ constant.
    bool has_declared_typecode(AST_Decl* d) const;
    // A file-level name from `d`'s scoped name, unique in the file.
    std::string unique_name(AST_Decl* d);

    CxxTypeMapping m_map;
    NameResolver& m_resolver;
    std::map<std::string, std::string> m_anonymous; // maker -> constant
    std::map<AST_Decl*, std::string> m_copies;
    std::set<std::string> m_names;
};

#endif
