// A value box: valuetype Name <type>;
#ifndef AST_VALUEBOX_H
#define AST_VALUEBOX_H

#include "AST_Type.h"

class AST_ValueBox : public AST_Type {
public:
    AST_ValueBox(Identifier name, AST_Type* boxed) : AST_Type(NT_value_box, std::move(name)), m_boxed(boxed) {}
    static AST_ValueBox* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_value_box ? static_cast<AST_ValueBox*>(d) : nullptr; }
    AST_Type* boxed_type() const { return m_boxed; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_boxed;
};

#endif
