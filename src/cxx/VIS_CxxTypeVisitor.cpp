#include "VIS_CxxTypeVisitor.h"

#include "AST_Array.h"
#include "AST_Enum.h"
#include "AST_Exception.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Native.h"
#include "AST_Object.h"
#include "AST_PredefinedType.h"
#include "AST_Sequence.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionFwd.h"
#include "AST_Value.h"
#include "AST_ValueBase.h"
#include "AST_ValueBox.h"
#include "AST_ValueFwd.h"

#include <ostream>

long VIS_CxxTypeVisitor::visit_AST_Interface(AST_Interface* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_InterfaceFwd(AST_InterfaceFwd* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_AbstractInterface(AST_Interface* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Value(AST_Value* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_ValueFwd(AST_ValueFwd* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_ValueBox(AST_ValueBox* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Structure(AST_Structure* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_StructFwd(AST_StructFwd* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Union(AST_Union* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_UnionFwd(AST_UnionFwd* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Enum(AST_Enum* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Exception(AST_Exception* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_String(AST_String* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Array(AST_Array* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Sequence(AST_Sequence* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Typedef(AST_Typedef* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_PredefinedType(AST_PredefinedType* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Object(AST_Object* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_ValueBase(AST_ValueBase* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Native(AST_Native* n) { return visit_type(n); }
long VIS_CxxTypeVisitor::visit_AST_Fixed(AST_Fixed* n) { return visit_type(n); }

