// The types the language predefines: one node for each predefined kind, for
// Object and ValueBase, and for unbounded string and wstring, all owned by
// the root as local types and shared by every use. TypeCode, Principal,
// Object and ValueBase are also reachable by name (TypeCode, CORBA::TypeCode)
// through the name tables.
#ifndef IDL_PREDEFINED_H
#define IDL_PREDEFINED_H

#include "AST_PredefinedType.h"

class AST_Object;
class AST_Root;
class AST_String;
class AST_ValueBase;
class IDL_Names;

class IDL_Predefined {
public:
    IDL_Predefined(AST_Root* root, IDL_Names& names);

    AST_PredefinedType* get(AST_PredefinedType::PredefinedType pt) const { return m_types[pt]; }
    AST_Object* object() const { return m_object; }
    AST_ValueBase* value_base() const { return m_value_base; }
    // The shared node of unbounded string or wstring.
    AST_String* string(bool wide) const { return wide ? m_wstring : m_string; }

private:
    AST_PredefinedType* m_types[AST_PredefinedType::PT_principal + 1] = {};
    AST_Object* m_object = nullptr;
    AST_ValueBase* m_value_base = nullptr;
    AST_String* m_string = nullptr;
    AST_String* m_wstring = nullptr;
};

#endif
