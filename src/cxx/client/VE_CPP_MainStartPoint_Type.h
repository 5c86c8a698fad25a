// The client source file's emitter for structures, unions, exceptions,
// enumerations, typedefs and natives: the definition of the type's type
// code (see CxxTypeCodeWriter), the bodies of its marshaling (see
// CxxMarshalWriter) and of its any operators (see CxxAnyOperatorWriter),
// then the definitions of the types nested in it. The interface and value
// emitters derive from it for the type codes and type ids of their types.
#ifndef VE_CPP_MAINSTARTPOINT_TYPE_H
#define VE_CPP_MAINSTARTPOINT_TYPE_H

#include "VE_Cxx.h"

class CxxPrinter;

class VE_CPP_MainStartPoint_Type : public virtual VE_Cxx {
public:
    explicit VE_CPP_MainStartPoint_Type(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    // Writes the type code definition of named type `d`.
    void output_typecode(CxxPrinter& p, AST_Decl* d);
    // Writes the definition of the static type id of class `d` (an
    // interface, value type or value box).
    void output_type_id(CxxPrinter& p, AST_Decl* d);
    // Writes the definitions of `d`'s any operators.
    void output_any_operators(CxxPrinter& p, AST_Decl* d);
    // Has the declarations nested in scope `d` visited.
    void output_nested(AST_Decl* d);
};

#endif
