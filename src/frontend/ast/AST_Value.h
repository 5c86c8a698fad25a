// A value type: concrete, abstract or custom, with its value bases, the
// interfaces it supports and its members (state members, operations,
// attributes, factories, nested types).
#ifndef AST_VALUE_H
#define AST_VALUE_H

#include "AST_Interface.h"
#include "AST_Type.h"
#include "UTL_Scope.h"

#include <vector>

class AST_Value : public AST_Type, public UTL_Scope {
public:
    AST_Value(Identifier name, bool is_abstract, bool is_custom)
        : AST_Type(NT_value, std::move(name)), m_abstract(is_abstract), m_custom(is_custom)
    {
    }
    static AST_Value* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_value ? static_cast<AST_Value*>(d) : nullptr; }

    long is_abstract() const { return m_abstract; }
    long is_custom() const { return m_custom; }
    // True when the first value base is written "truncatable".
    long is_truncatable() const { return m_truncatable; }

    // The value bases, in declaration order.
    const std::vector<AST_Value*>& inherits() const { return m_inherits; }
    // Every interface named after "supports", in declaration order.
    const std::vector<AST_Interface*>& supports() const { return m_supports; }
    // The interface the value type supports: the non-abstract one among
    // supports() if there is one, else the first; null when it supports none.
    AST_Interface* supported() const
    {
        for (AST_Interface* i : m_supports)
            if (!i->is_abstract())
                return i;
        return m_supports.empty() ? nullptr : m_supports.front();
    }

    void set_inherits(std::vector<AST_Value*> bases, bool truncatable)
    {
        m_inherits = std::move(bases);
        m_truncatable = truncatable;
    }
    void set_supports(std::vector<AST_Interface*> s) { m_supports = std::move(s); }
    void set_flags(bool is_abstract, bool is_custom)
    {
        m_abstract = is_abstract;
        m_custom = is_custom;
    }
    bool is_defined() const { return m_defined; }
    void set_defined(bool d) { m_defined = d; }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

private:
    bool m_abstract;
    bool m_custom;
    bool m_truncatable = false;
    bool m_defined = false;
    std::vector<AST_Value*> m_inherits;
    std::vector<AST_Interface*> m_supports;
};

#endif
