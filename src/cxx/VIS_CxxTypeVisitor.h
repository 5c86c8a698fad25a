// The base of visitors that write something for a type: every visit of a
// node that names a type goes to visit_type, so a derived visitor writes
// its text in one place from the type mapping (CxxTypeMapping). Nodes that
// are no types are passed over.
#ifndef VIS_CXXTYPEVISITOR_H
#define VIS_CXXTYPEVISITOR_H

#include "CxxPrinter.h"
#include "CxxTypeMapping.h"
#include "VIS_Cxx.h"

class AST_Type;

class VIS_CxxTypeVisitor : public virtual VIS_Cxx {
public:
    // The class is abstract: the most derived visitor builds the virtual
    // bases Visitor_i and VIS_Cxx.
    VIS_CxxTypeVisitor() = default;

    long visit_AST_Interface(AST_Interface* n) override;
    long visit_AST_InterfaceFwd(AST_InterfaceFwd* n) override;
    long visit_AST_AbstractInterface(AST_Interface* n) override;
    long visit_AST_Value(AST_Value* n) override;
    long visit_AST_ValueFwd(AST_ValueFwd* n) override;
    long visit_AST_ValueBox(AST_ValueBox* n) override;
    long visit_AST_Structure(AST_Structure* n) override;
    long visit_AST_StructFwd(AST_StructFwd* n) override;
    long visit_AST_Union(AST_Union* n) override;
    long visit_AST_UnionFwd(AST_UnionFwd* n) override;
    long visit_AST_Enum(AST_Enum* n) override;
    long visit_AST_Exception(AST_Exception* n) override;
    long visit_AST_String(AST_String* n) override;
    long visit_AST_Array(AST_Array* n) override;
    long visit_AST_Sequence(AST_Sequence* n) override;
    long visit_AST_Typedef(AST_Typedef* n) override;
    long visit_AST_PredefinedType(AST_PredefinedType* n) override;
    long visit_AST_Object(AST_Object* n) override;
    long visit_AST_ValueBase(AST_ValueBase* n) override;
    long visit_AST_Native(AST_Native* n) override;
    long visit_AST_Fixed(AST_Fixed* n) override;

protected:
    // Writes the visitor's text for type `t`; answers 1.
    virtual long visit_type(AST_Type* t) = 0;

    // The type mapping as seen from the visitor's current scope.
    CxxTypeMapping mapping() const { return CxxTypeMapping(resolver(), scope()); }
    // A writer on the visitor's stream and indentation, at the start of a
    // line.
    CxxPrinter printer() { return CxxPrinter(stream(), indent()); }
};

#endif
