// The client header's interface emitter. For interface I it writes
//
//   class I;  typedef I* I_ptr;  I_var, I_out        (once per type)
//   class I : public virtual <bases or CORBA::Object>
//   {
//     public:
//       static I_ptr _duplicate(I_ptr), _nil(), _narrow(CORBA::Object_ptr),
//           _unchecked_narrow(CORBA::Object_ptr);
//       (an abstract interface derives from CORBA::AbstractBase instead,
//       narrows a CORBA::AbstractBase_ptr too and makes its proxy of an
//       object reference read from a message with _yv_from_object; an
//       interface or proxy that is both says with _yv_object that it is an
//       object reference)
//       static const YV_FWString _yv_fw_type_id;
//       <pure virtual member per operation and accessor, nested types>
//   };
//   extern const CORBA::TypeCode_ptr _tc_I;
//   class YV_Gen_DynamicProxy_I :               (not for local interfaces)
//       public YV_Gen_DynamicProxy_B, public virtual I
//   {
//       every operation and accessor of I and of those of its bases that
//       the proxy of its first base B does not bring, each of which has the
//       target servant serve it in process
//   };
//
// and, with AMI callbacks on, the same for I's reply handler AMI_IHandler.
// Skeleton back ends use the reply-handler construction.
#ifndef VE_HH_MAINSTARTPOINT_INTERFACE_H
#define VE_HH_MAINSTARTPOINT_INTERFACE_H

#include "VE_Cxx.h"

#include <string>
#include <vector>

class AST_Interface;
class CxxPrinter;

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

    // The interface whose proxy the proxy of `i` derives from: its first
    // base, when that is an interface with a generated proxy. Null for a
    // reply handler and for a base the runtime defines: such a proxy
    // declares the members of all its bases itself.
    AST_Interface* proxy_base(AST_Interface* i);
    // The interfaces whose members the proxy of `i` declares: `i` and every
    // base that the proxy base and its bases do not cover, in the order of
    // VE_Client_Interface::find_all_interfaces.
    std::vector<AST_Interface*> proxy_interfaces(AST_Interface* i);

    // Whether `i` is an abstract interface or derives from one.
    static bool abstract_kind(AST_Interface* i);

protected:
    // The whole text of one interface (I itself or its reply handler).
    virtual void output_interface(AST_Interface* i);
    // The class's static members: _duplicate, _nil, _narrow,
    // _unchecked_narrow, the type id.
    virtual void output_standard_members(CxxPrinter& p, AST_Interface* i);
    // The interface's own declarations in order: operations and accessors
    // as pure virtual members, nested types and constants.
    virtual void output_members(AST_Interface* i);
    // The dynamic proxy class.
    virtual void output_proxy(AST_Interface* i);
    // What a class that is both an abstract interface and an object
    // reference says of itself.
    static void write_object_identity(CxxPrinter& p);
};

#endif
