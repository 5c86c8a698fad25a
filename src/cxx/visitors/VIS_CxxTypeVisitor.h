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

    // One visit per node kind that names a type.
#define YV_TYPE_VISIT_1(Name, Class) long visit_AST_##Name(Class* n) override;
#define YV_TYPE_VISIT_0(Name, Class)
#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) YV_TYPE_VISIT_##IsType(Name, Class)
#include "Visitor_Nodes.def"
#undef YV_TYPE_VISIT_1
#undef YV_TYPE_VISIT_0

protected:
    // Writes the visitor's text for type `t`; answers 1.
    virtual long visit_type(AST_Type* t) = 0;

    // The type mapping as seen from the visitor's current scope.
    CxxTypeMapping mapping() const;
    // A writer on the visitor's stream and indentation, at the start of a
    // line.
    CxxPrinter printer() { return CxxPrinter(stream(), indent()); }
    // Writes `text` as a piece of the line the caller has begun (a type's
    // name in a declaration).
    void write_piece(std::string_view text) { CxxPrinter(stream(), indent(), false).print("$t$", {{"t", text}}); }
};

#endif
