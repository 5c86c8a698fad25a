// A sequence type, bounded (max_size() > 0) or not. Sequences are
// anonymous; a typedef or a member declarator names them.
#ifndef AST_SEQUENCE_H
#define AST_SEQUENCE_H

#include "AST_Type.h"

class AST_Sequence : public AST_Type {
public:
    AST_Sequence(AST_Type* base, unsigned long max_size)
        : AST_Type(NT_sequence, Identifier("sequence")), m_base(base), m_max(max_size)
    {
    }
    static AST_Sequence* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_sequence ? static_cast<AST_Sequence*>(d) : nullptr; }
    AST_Type* base_type() const { return m_base; }
    unsigned long max_size() const { return m_max; }
    // True when the element type is a structure or union still being
    // defined where the sequence is written (a recursive sequence).
    bool is_recursive() const { return m_recursive; }
    void set_recursive(bool r) { m_recursive = r; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_base;
    unsigned long m_max;
    bool m_recursive = false;
};

#endif
