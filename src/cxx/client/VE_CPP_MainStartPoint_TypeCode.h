// The client source file's emitter for structures, unions, exceptions,
// enumerations and typedefs: the definition of the type's type code
//
//   const CORBA::TypeCode_ptr M::_tc_S = new CORBA::TypeCode(CORBA::tk_struct, 0, "IDL:M/S:1.0", "S");
//
// (an object that lives as long as the program), then the definitions of
// the types nested in it. Also used by the other emitters for their own
// type codes.
#ifndef VE_CPP_MAINSTARTPOINT_TYPECODE_H
#define VE_CPP_MAINSTARTPOINT_TYPECODE_H

#include "VE_Cxx.h"

class VE_CPP_MainStartPoint_TypeCode : public virtual VE_Cxx {
public:
    explicit VE_CPP_MainStartPoint_TypeCode(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // Writes the type code definition of named type `d`.
    void output_typecode(AST_Decl* d);
    // Writes the definition of the static type id of class `d` (an
    // interface, value type or value box).
    void output_type_id(AST_Decl* d);
};

#endif
