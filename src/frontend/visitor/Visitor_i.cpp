#include "Visitor_i.h"

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
#include "idl_msg_header.h"

#include <ostream>

Visitor_i::NarrowFailure::NarrowFailure(Visitor* v, AST_Decl* d) : m_visitor(v ? v->name() : "visitor"), m_decl(d) {}

void Visitor_i::NarrowFailure::output_exception(std::ostream& os)
{
    idl_msg_header(m_decl ? m_decl->line() : 0, m_decl ? m_decl->file_name() : nullptr);
    os << "internal error: " << m_visitor << " cannot handle a node of kind "
       << (m_decl ? static_cast<int>(m_decl->node_type()) : -1) << std::endl;
}

Visitor_i::~Visitor_i() = default;

void Visitor_i::add_element(const char* key, VisitorElement* e)
{
    std::unique_ptr<VisitorElement> owned(e);
    for (auto& entry : m_elements)
        if (entry.key == key) {
            entry.key_address = key;
            entry.element = std::move(owned);
            return;
        }
    m_elements.push_back(Entry{key, key, std::move(owned)});
}

Visitor_i::VisitorElement* Visitor_i::find_element(const char* key) const
{
    for (const auto& entry : m_elements)
        if (entry.key_address == key)
            return entry.element.get();
    for (const auto& entry : m_elements)
        if (entry.key == key)
            return entry.element.get();
    return nullptr;
}

long Visitor_i::dispatch(const char* key, AST_Decl* d)
{
    VisitorElement* e = find_element(key);
    return e ? e->visit(d) : 1;
}

long Visitor_i::visit_AST_Root(AST_Root* n) { return dispatch(rootKey, n); }
long Visitor_i::visit_AST_Module(AST_Module* n) { return dispatch(moduleKey, n); }
long Visitor_i::visit_AST_Interface(AST_Interface* n) { return dispatch(interfaceKey, n); }
long Visitor_i::visit_AST_InterfaceFwd(AST_InterfaceFwd* n) { return dispatch(interfaceFwdKey, n); }
long Visitor_i::visit_AST_AbstractInterface(AST_Interface* n) { return dispatch(interfaceKey, n); }
long Visitor_i::visit_AST_Value(AST_Value* n) { return dispatch(valueKey, n); }
long Visitor_i::visit_AST_ValueFwd(AST_ValueFwd* n) { return dispatch(valueFwdKey, n); }
long Visitor_i::visit_AST_ValueBox(AST_ValueBox* n) { return dispatch(valueBoxKey, n); }
long Visitor_i::visit_AST_CBE_Specific(AST_CBE_Specific* n) { return dispatch(CBE_specificKey, n); }
long Visitor_i::visit_AST_Operation(AST_Operation* n) { return dispatch(operationKey, n); }
long Visitor_i::visit_AST_Attribute(AST_Attribute* n) { return dispatch(attributeKey, n); }
long Visitor_i::visit_AST_Argument(AST_Argument* n) { return dispatch(argumentKey, n); }
long Visitor_i::visit_AST_Structure(AST_Structure* n) { return dispatch(structureKey, n); }
long Visitor_i::visit_AST_StructFwd(AST_StructFwd* n) { return dispatch(structFwdKey, n); }
long Visitor_i::visit_AST_Union(AST_Union* n) { return dispatch(unionKey, n); }
long Visitor_i::visit_AST_UnionFwd(AST_UnionFwd* n) { return dispatch(unionFwdKey, n); }
long Visitor_i::visit_AST_UnionBranch(AST_UnionBranch* n) { return dispatch(unionBranchKey, n); }
long Visitor_i::visit_AST_Field(AST_Field* n) { return dispatch(fieldKey, n); }
long Visitor_i::visit_AST_Enum(AST_Enum* n) { return dispatch(enumKey, n); }
long Visitor_i::visit_AST_EnumVal(AST_EnumVal* n) { return dispatch(enumValKey, n); }
long Visitor_i::visit_AST_Constant(AST_Constant* n) { return dispatch(constantKey, n); }
long Visitor_i::visit_AST_Exception(AST_Exception* n) { return dispatch(exceptionKey, n); }
long Visitor_i::visit_AST_String(AST_String* n) { return dispatch(stringKey, n); }
long Visitor_i::visit_AST_Array(AST_Array* n) { return dispatch(arrayKey, n); }
long Visitor_i::visit_AST_Sequence(AST_Sequence* n) { return dispatch(sequenceKey, n); }
long Visitor_i::visit_AST_Typedef(AST_Typedef* n) { return dispatch(typedefKey, n); }
long Visitor_i::visit_AST_PredefinedType(AST_PredefinedType* n) { return dispatch(predefinedKey, n); }
long Visitor_i::visit_AST_Object(AST_Object* n) { return dispatch(objectKey, n); }
long Visitor_i::visit_AST_ValueBase(AST_ValueBase* n) { return dispatch(valueBaseKey, n); }
long Visitor_i::visit_AST_Native(AST_Native* n) { return dispatch(nativeKey, n); }
long Visitor_i::visit_AST_Fixed(AST_Fixed* n) { return dispatch(fixedKey, n); }
long Visitor_i::visit_AST_Factory(AST_Factory* n) { return dispatch(factoryKey, n); }
long Visitor_i::visit_AST_StateMember(AST_StateMember* n) { return dispatch(stateMemberKey, n); }
