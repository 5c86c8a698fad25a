// A visitor that writes the plain local name (after clash resolution) of
// whatever node accepts it.
#ifndef DEFAULTOUTPUTVISITOR_H
#define DEFAULTOUTPUTVISITOR_H

#include "Visitor_i.h"

#include <iosfwd>

class NameResolver;

class DefaultOutputVisitor : public virtual Visitor_i {
public:
    DefaultOutputVisitor(std::ostream& os, NameResolver& resolver) : Visitor_i(nullptr, nullptr), m_os(os), m_resolver(resolver) {}

    const char* name() override { return "DefaultOutputVisitor"; }

    long visit_AST_Root(AST_Root* n) override;
    long visit_AST_Module(AST_Module* n) override;
    long visit_AST_Interface(AST_Interface* n) override;
    long visit_AST_InterfaceFwd(AST_InterfaceFwd* n) override;
    long visit_AST_AbstractInterface(AST_Interface* n) override;
    long visit_AST_Value(AST_Value* n) override;
    long visit_AST_ValueFwd(AST_ValueFwd* n) override;
    long visit_AST_ValueBox(AST_ValueBox* n) override;
    long visit_AST_CBE_Specific(AST_CBE_Specific* n) override;
    long visit_AST_Operation(AST_Operation* n) override;
    long visit_AST_Attribute(AST_Attribute* n) override;
    long visit_AST_Argument(AST_Argument* n) override;
    long visit_AST_Structure(AST_Structure* n) override;
    long visit_AST_StructFwd(AST_StructFwd* n) override;
    long visit_AST_Union(AST_Union* n) override;
    long visit_AST_UnionFwd(AST_UnionFwd* n) override;
    long visit_AST_UnionBranch(AST_UnionBranch* n) override;
    long visit_AST_Field(AST_Field* n) override;
    long visit_AST_Enum(AST_Enum* n) override;
    long visit_AST_EnumVal(AST_EnumVal* n) override;
    long visit_AST_Constant(AST_Constant* n) override;
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
    long visit_AST_Factory(AST_Factory* n) override;
    long visit_AST_StateMember(AST_StateMember* n) override;

protected:
    std::ostream& stream() const { return m_os; }
    NameResolver& resolver() const { return m_resolver; }
    // Writes the resolver's local name of `d`; answers 1.
    long write_name(AST_Decl* d);

private:
    std::ostream& m_os;
    NameResolver& m_resolver;
};

#endif
