// An array type: the element type and the dimensions, outermost first.
// Arrays are anonymous; a typedef or a member declarator names them.
#ifndef AST_ARRAY_H
#define AST_ARRAY_H

#include "AST_Type.h"

#include <vector>

class AST_Array : public AST_Type {
public:
    AST_Array(Identifier name, AST_Type* base, std::vector<unsigned long> dims)
        : AST_Type(NT_array, std::move(name)), m_base(base), m_dims(std::move(dims))
    {
    }
    static AST_Array* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_array ? static_cast<AST_Array*>(d) : nullptr; }
    AST_Type* base_type() const { return m_base; }
    const std::vector<unsigned long>& dims() const { return m_dims; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_base;
    std::vector<unsigned long> m_dims;
};

#endif
