// The visitor of the tree: one visit operation per node class, and the keys
// under which Visitor_i registers the emitter for each node kind.
#ifndef VISITOR_H
#define VISITOR_H

#include <iosfwd>

class AST_Argument;
class AST_Array;
class AST_Attribute;
class AST_CBE_Specific;
class AST_Constant;
class AST_Enum;
class AST_EnumVal;
class AST_Exception;
class AST_Factory;
class AST_Field;
class AST_Fixed;
class AST_Interface;
class AST_InterfaceFwd;
class AST_Module;
class AST_Native;
class AST_Object;
class AST_Operation;
class AST_PredefinedType;
class AST_Root;
class AST_Sequence;
class AST_StateMember;
class AST_String;
class AST_StructFwd;
class AST_Structure;
class AST_Typedef;
class AST_Union;
class AST_UnionBranch;
class AST_UnionFwd;
class AST_Value;
class AST_ValueBase;
class AST_ValueBox;
class AST_ValueFwd;

class Visitor {
public:
    // Keys of the element table, one per node kind (abstract interfaces
    // use the interface key).
    static const char* const rootKey;
    static const char* const moduleKey;
    static const char* const interfaceKey;
    static const char* const interfaceFwdKey;
    static const char* const valueKey;
    static const char* const valueFwdKey;
    static const char* const valueBoxKey;
    static const char* const CBE_specificKey;
    static const char* const operationKey;
    static const char* const attributeKey;
    static const char* const argumentKey;
    static const char* const structureKey;
    static const char* const structFwdKey;
    static const char* const unionKey;
    static const char* const unionFwdKey;
    static const char* const unionBranchKey;
    static const char* const fieldKey;
    static const char* const enumKey;
    static const char* const enumValKey;
    static const char* const constantKey;
    static const char* const exceptionKey;
    static const char* const stringKey;
    static const char* const arrayKey;
    static const char* const sequenceKey;
    static const char* const typedefKey;
    static const char* const predefinedKey;
    static const char* const objectKey;
    static const char* const valueBaseKey;
    static const char* const nativeKey;
    static const char* const fixedKey;
    static const char* const factoryKey;
    static const char* const stateMemberKey;

    // An error found during a walk. Each kind reports itself.
    class VisitorException {
    public:
        virtual ~VisitorException() = default;
        virtual void output_exception(std::ostream& os) = 0;
    };

    virtual ~Visitor() = default;

    // The visitor's registration key.
    virtual const char* name() = 0;

    virtual long visit_AST_Root(AST_Root* n) = 0;
    virtual long visit_AST_Module(AST_Module* n) = 0;
    virtual long visit_AST_Interface(AST_Interface* n) = 0;
    virtual long visit_AST_InterfaceFwd(AST_InterfaceFwd* n) = 0;
    virtual long visit_AST_AbstractInterface(AST_Interface* n) = 0;
    virtual long visit_AST_Value(AST_Value* n) = 0;
    virtual long visit_AST_ValueFwd(AST_ValueFwd* n) = 0;
    virtual long visit_AST_ValueBox(AST_ValueBox* n) = 0;
    virtual long visit_AST_CBE_Specific(AST_CBE_Specific* n) = 0;
    virtual long visit_AST_Operation(AST_Operation* n) = 0;
    virtual long visit_AST_Attribute(AST_Attribute* n) = 0;
    virtual long visit_AST_Argument(AST_Argument* n) = 0;
    virtual long visit_AST_Structure(AST_Structure* n) = 0;
    virtual long visit_AST_StructFwd(AST_StructFwd* n) = 0;
    virtual long visit_AST_Union(AST_Union* n) = 0;
    virtual long visit_AST_UnionFwd(AST_UnionFwd* n) = 0;
    virtual long visit_AST_UnionBranch(AST_UnionBranch* n) = 0;
    virtual long visit_AST_Field(AST_Field* n) = 0;
    virtual long visit_AST_Enum(AST_Enum* n) = 0;
    virtual long visit_AST_EnumVal(AST_EnumVal* n) = 0;
    virtual long visit_AST_Constant(AST_Constant* n) = 0;
    virtual long visit_AST_Exception(AST_Exception* n) = 0;
    virtual long visit_AST_String(AST_String* n) = 0;
    virtual long visit_AST_Array(AST_Array* n) = 0;
    virtual long visit_AST_Sequence(AST_Sequence* n) = 0;
    virtual long visit_AST_Typedef(AST_Typedef* n) = 0;
    virtual long visit_AST_PredefinedType(AST_PredefinedType* n) = 0;
    virtual long visit_AST_Object(AST_Object* n) = 0;
    virtual long visit_AST_ValueBase(AST_ValueBase* n) = 0;
    virtual long visit_AST_Native(AST_Native* n) = 0;
    virtual long visit_AST_Fixed(AST_Fixed* n) = 0;
    virtual long visit_AST_Factory(AST_Factory* n) = 0;
    virtual long visit_AST_StateMember(AST_StateMember* n) = 0;
};

#endif
