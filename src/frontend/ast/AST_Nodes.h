// Every node class of the tree: for the code that handles all of them (the
// visitor framework's default operations and the nodes' accept operations).
#ifndef AST_NODES_H
#define AST_NODES_H

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_CBE_Specific.h"
#include "AST_Constant.h"
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

#endif
