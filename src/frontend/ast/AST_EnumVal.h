// One enumerator, with its position (from 0) in its enumeration.
#ifndef AST_ENUMVAL_H
#define AST_ENUMVAL_H

#include "AST_Decl.h"

class AST_EnumVal : public AST_Decl {
public:
    AST_EnumVal(unsigned long ordinal, Identifier name) : AST_Decl(NT_enum_val, std::move(name)), m_ordinal(ordinal) {}
    static AST_EnumVal* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_enum_val ? static_cast<AST_EnumVal*>(d) : nullptr; }
    unsigned long ordinal() const { return m_ordinal; }
    long accept(Visitor* v) override;

private:
    unsigned long m_ordinal;
};

#endif
