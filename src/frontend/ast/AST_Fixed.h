// A fixed-point type: fixed<digits, scale>.
#ifndef AST_FIXED_H
#define AST_FIXED_H

#include "AST_Type.h"

class AST_Fixed : public AST_Type {
public:
    AST_Fixed(unsigned digits, unsigned scale) : AST_Type(NT_fixed, Identifier("fixed")), m_digits(digits), m_scale(scale) {}
    static AST_Fixed* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_fixed ? static_cast<AST_Fixed*>(d) : nullptr; }
    unsigned digits() const { return m_digits; }
    unsigned scale() const { return m_scale; }
    long accept(Visitor* v) override;

private:
    unsigned m_digits;
    unsigned m_scale;
};

#endif
