// The client header's interface emitter; skeleton back ends use it for the
// reply-handler interface of the asynchronous callback model.
#ifndef VE_HH_MAINSTARTPOINT_INTERFACE_H
#define VE_HH_MAINSTARTPOINT_INTERFACE_H

#include "VE_Cxx.h"

class AST_Interface;

class VE_HH_MainStartPoint_Interface : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Interface(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // A new interface node: the reply handler AMI_<I>Handler of interface I,
    // defined in I's scope, neither local nor abstract, deriving from the
    // handlers of I's bases or else from Messaging::ReplyHandler. For each
    // operation op: op(result and out/inout values) and op_excep(holder);
    // for each attribute A: get_A(value) and get_A_excep(holder), and when
    // A is writable set_A() and set_A_excep(holder). The caller owns the
    // node and deletes it; it is not entered into the tree.
    AST_Interface* create_full_ami_handler(AST_Interface* i);
};

#endif
