#include "DefaultOutputVisitor.h"

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_CBE_Specific.h"
#include "AST_Constant.h"
#include "AST_Decl.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Exception.h"
#include "AST_Factory.h"
#include "AST_Field.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Native.h"
#include "AST_Object.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Root.h"
#include "AST_Sequence.h"
#include "AST_StateMember.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_UnionFwd.h"
#include "AST_Value.h"
#include "AST_ValueBase.h"
#include "AST_ValueBox.h"
#include "AST_ValueFwd.h"
#include "NameResolver.h"

#include <ostream>

long DefaultOutputVisitor::write_name(AST_Decl* d)
{
    m_os << m_resolver.local_name(d);
    return 1;
}

long DefaultOutputVisitor::visit_AST_Root(AST_Root* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Module(AST_Module* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Interface(AST_Interface* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_InterfaceFwd(AST_InterfaceFwd* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_AbstractInterface(AST_Interface* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Value(AST_Value* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_ValueFwd(AST_ValueFwd* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_ValueBox(AST_ValueBox* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_CBE_Specific(AST_CBE_Specific* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Operation(AST_Operation* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Attribute(AST_Attribute* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Argument(AST_Argument* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Structure(AST_Structure* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_StructFwd(AST_StructFwd* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Union(AST_Union* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_UnionFwd(AST_UnionFwd* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_UnionBranch(AST_UnionBranch* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Field(AST_Field* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Enum(AST_Enum* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_EnumVal(AST_EnumVal* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Constant(AST_Constant* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Exception(AST_Exception* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_String(AST_String* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Array(AST_Array* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Sequence(AST_Sequence* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Typedef(AST_Typedef* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_PredefinedType(AST_PredefinedType* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Object(AST_Object* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_ValueBase(AST_ValueBase* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Native(AST_Native* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Fixed(AST_Fixed* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_Factory(AST_Factory* n) { return write_name(n); }
long DefaultOutputVisitor::visit_AST_StateMember(AST_StateMember* n) { return write_name(n); }
