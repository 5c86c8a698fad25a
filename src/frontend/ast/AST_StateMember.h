// A state member of a value type: public or private.
#ifndef AST_STATEMEMBER_H
#define AST_STATEMEMBER_H

#include "AST_Field.h"

class AST_StateMember : public AST_Field {
public:
    AST_StateMember(bool is_public, AST_Type* type, Identifier name)
        : AST_Field(NT_state_member, type, std::move(name)), m_public(is_public)
    {
    }
    static AST_StateMember* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_state_member ? static_cast<AST_StateMember*>(d) : nullptr; }
    long is_public() const { return m_public; }
    long accept(Visitor* v) override;

private:
    bool m_public;
};

#endif
