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

#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) long visit_AST_##Name(Class* n) override;
#include "Visitor_Nodes.def"

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
