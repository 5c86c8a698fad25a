// A constant: its declared type and its evaluated value.
#ifndef AST_CONSTANT_H
#define AST_CONSTANT_H

#include "AST_Decl.h"
#include "AST_Expression.h"
#include "AST_Type.h"

class AST_Constant : public AST_Decl {
public:
    AST_Constant(AST_Type* type, AST_Expression value, Identifier name)
        : AST_Decl(NT_const, std::move(name)), m_type(type), m_value(std::move(value))
    {
    }
    static AST_Constant* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_const ? static_cast<AST_Constant*>(d) : nullptr; }

    // The type as written (a typedef is not looked through).
    AST_Type* constant_type() const { return m_type; }
    const AST_Expression& constant_value() const { return m_value; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_type;
    AST_Expression m_value;
};

#endif
