// A string or wstring type, bounded or not. A type written directly in a
// declaration rather than named through a typedef is anonymous.
#ifndef AST_STRING_H
#define AST_STRING_H

#include "AST_Type.h"

class AST_String : public AST_Type {
public:
    // `max_size` 0 means unbounded.
    AST_String(bool wide, unsigned long max_size, bool anonymous)
        : AST_Type(NT_string, Identifier(wide ? "wstring" : "string")), m_wide(wide), m_max(max_size), m_anonymous(anonymous)
    {
    }
    static AST_String* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_string ? static_cast<AST_String*>(d) : nullptr; }

    long is_wide() const { return m_wide; }
    unsigned long max_size() const { return m_max; }
    // Non-zero for a bounded string written directly in a declaration.
    long anonymous() const { return m_anonymous; }
    long accept(Visitor* v) override;

private:
    bool m_wide;
    unsigned long m_max;
    bool m_anonymous;
};

#endif
