// An interface, abstract or local or neither. The node of a forward-declared
// interface is created at its first forward declaration and moved into its
// scope where the definition stands, so every reference names this node.
#ifndef AST_INTERFACE_H
#define AST_INTERFACE_H

#include "AST_Type.h"
#include "UTL_Scope.h"

#include <vector>

class AST_Interface : public AST_Type, public UTL_Scope {
public:
    AST_Interface(Identifier name, bool is_abstract, bool is_local)
        : AST_Type(NT_interface, std::move(name)), m_abstract(is_abstract), m_local(is_local)
    {
    }
    static AST_Interface* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_interface ? static_cast<AST_Interface*>(d) : nullptr; }

    long is_local() const { return m_local; }
    long is_abstract() const { return m_abstract; }
    // The direct bases, in declaration order.
    const std::vector<AST_Interface*>& inherits() const { return m_inherits; }
    long n_inherits() const { return static_cast<long>(m_inherits.size()); }
    void set_inherits(std::vector<AST_Interface*> bases) { m_inherits = std::move(bases); }

    // False while only forward declarations have been seen.
    bool is_defined() const { return m_defined; }
    void set_defined(bool d) { m_defined = d; }
    void set_flags(bool is_abstract, bool is_local)
    {
        m_abstract = is_abstract;
        m_local = is_local;
    }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

private:
    bool m_abstract;
    bool m_local;
    bool m_defined = false;
    std::vector<AST_Interface*> m_inherits;
};

#endif
