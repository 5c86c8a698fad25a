// A typedef: a new name for a type.
#ifndef AST_TYPEDEF_H
#define AST_TYPEDEF_H

#include "AST_Type.h"

class AST_Typedef : public AST_Type {
public:
    AST_Typedef(AST_Type* base, Identifier name) : AST_Type(NT_typedef, std::move(name)), m_base(base) {}
    static AST_Typedef* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_typedef ? static_cast<AST_Typedef*>(d) : nullptr; }
    AST_Type* base_type() const { return m_base; }
    // Follows a chain of typedefs to the first type that is not one.
    AST_Type* primitive_base_type() const
    {
        AST_Type* t = m_base;
        while (AST_Typedef* td = narrow_from_decl(t))
            t = td->base_type();
        return t;
    }
    long accept(Visitor* v) override;

private:
    AST_Type* m_base;
};

#endif
