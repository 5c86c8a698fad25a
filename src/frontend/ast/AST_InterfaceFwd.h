// A forward declaration of an interface.
#ifndef AST_INTERFACEFWD_H
#define AST_INTERFACEFWD_H

#include "AST_ForwardT.h"
#include "AST_Interface.h"

class AST_InterfaceFwd : public AST_ForwardT<AST_InterfaceFwd, AST_Interface, AST_Decl::NT_interface_fwd> {
public:
    using AST_ForwardT::AST_ForwardT;
    long accept(Visitor* v) override;
};

#endif
