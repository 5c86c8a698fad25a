// A forward declaration of a value type.
#ifndef AST_VALUEFWD_H
#define AST_VALUEFWD_H

#include "AST_Value.h"

class AST_ValueFwd : public AST_Type {
public:
    AST_ValueFwd(Identifier name, AST_Value* full) : AST_Type(NT_value_fwd, std::move(name)), m_full(full) {}
    static AST_ValueFwd* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_value_fwd ? static_cast<AST_ValueFwd*>(d) : nullptr; }
    AST_Value* full_definition() const { return m_full; }
    long accept(Visitor* v) override;

private:
    AST_Value* m_full;
};

#endif
