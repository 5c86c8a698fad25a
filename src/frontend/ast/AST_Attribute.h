// An attribute of an interface or value type, with its getraises and
// setraises clauses (a plain "raises" clause of a readonly attribute is its
// getraises clause).
#ifndef AST_ATTRIBUTE_H
#define AST_ATTRIBUTE_H

#include "AST_Field.h"
#include "UTL_ExceptList.h"

class AST_Attribute : public AST_Field {
public:
    AST_Attribute(bool readonly, AST_Type* type, Identifier name)
        : AST_Field(NT_attr, type, std::move(name)), m_readonly(readonly)
    {
    }
    static AST_Attribute* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_attr ? static_cast<AST_Attribute*>(d) : nullptr; }

    long readonly() const { return m_readonly; }
    UTL_ExceptList* get_exceptions() { return &m_get_raises; }
    UTL_ExceptList* set_exceptions() { return &m_set_raises; }
    long accept(Visitor* v) override;

private:
    bool m_readonly;
    UTL_ExceptList m_get_raises;
    UTL_ExceptList m_set_raises;
};

#endif
