// A forward declaration of a structure.
#ifndef AST_STRUCTFWD_H
#define AST_STRUCTFWD_H

#include "AST_Structure.h"

class AST_StructFwd : public AST_Type {
public:
    AST_StructFwd(Identifier name, AST_Structure* full) : AST_Type(NT_struct_fwd, std::move(name)), m_full(full) {}
    static AST_StructFwd* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_struct_fwd ? static_cast<AST_StructFwd*>(d) : nullptr; }
    AST_Structure* full_definition() const { return m_full; }
    long accept(Visitor* v) override;

private:
    AST_Structure* m_full;
};

#endif
