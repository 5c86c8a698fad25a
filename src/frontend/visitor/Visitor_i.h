// A visitor driven by a table of elements: each visit operation hands the
// node to the element registered under the key of the node's kind. A node
// kind without an element is passed over (the visit answers 1).
#ifndef VISITOR_I_H
#define VISITOR_I_H

#include "Visitor.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class AST_Decl;
class CodeGenerator;
class UTL_Scope;

class Visitor_i : public virtual Visitor {
public:
    // An emitter for one node kind.
    class VisitorElement {
    public:
        virtual ~VisitorElement() = default;
        virtual long visit(AST_Decl* d) = 0;
    };

    // A node handed to an element that cannot handle its kind.
    class NarrowFailure : public virtual Visitor::VisitorException {
    public:
        NarrowFailure(Visitor* v, AST_Decl* d);
        void output_exception(std::ostream& os) override;

    private:
        std::string m_visitor;
        AST_Decl* m_decl;
    };

    Visitor_i(UTL_Scope* scope, CodeGenerator* gen) : m_scope(scope), m_generator(gen) {}
    ~Visitor_i() override;
    Visitor_i(const Visitor_i&) = delete;
    Visitor_i& operator=(const Visitor_i&) = delete;

    // Registers `e` under `key`, replacing (and deleting) an element already
    // registered there. The visitor owns its elements and deletes them.
    void add_element(const char* key, VisitorElement* e);
    VisitorElement* find_element(const char* key) const;

    // The scope being visited; emitters may change it for a stretch.
    UTL_Scope* scope() const { return m_scope; }
    void set_scope(UTL_Scope* s) { m_scope = s; }
    CodeGenerator* generator() const { return m_generator; }

    const char* name() override { return "Visitor_i"; }

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
    // Hands `d` to the element under `key`; 1 when there is none.
    long dispatch(const char* key, AST_Decl* d);

private:
    UTL_Scope* m_scope;
    CodeGenerator* m_generator;
    struct Entry {
        const char* key_address;   // the key as registered: lookups by the same constant match at once
        std::string key;
        std::unique_ptr<VisitorElement> element;
    };
    std::vector<Entry> m_elements;
};

#endif
