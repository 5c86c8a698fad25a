// A forward declaration of an interface.
#ifndef AST_INTERFACEFWD_H
#define AST_INTERFACEFWD_H

#include "AST_Interface.h"

class AST_InterfaceFwd : public AST_Type {
public:
    AST_InterfaceFwd(Identifier name, AST_Interface* full) : AST_Type(NT_interface_fwd, std::move(name)), m_full(full) {}
    static AST_InterfaceFwd* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_interface_fwd ? static_cast<AST_InterfaceFwd*>(d) : nullptr; }

    // The interface the declaration announces (not yet defined while
    // is_defined() of it is false).
    AST_Interface* full_definition() const { return m_full; }
    long accept(Visitor* v) override;

private:
    AST_Interface* m_full;
};

#endif
