// The client source file's interface emitter: the type id, the type code,
// _narrow and _unchecked_narrow, the types nested in the interface, the
// members of the dynamic proxy YV_Gen_DynamicProxy_I and the interface's
// any operators. A proxy member names its operation with a constant
// descriptor (the name as it arrives in a request, whether it is oneway,
// and its raises clause), binds a streamable to each argument and to the
// result, lists the arguments with their directions and calls _yv_invoke:
//
//   CORBA::Long
//   M::YV_Gen_DynamicProxy_I::op(
//       const char* a,
//       CORBA::Long& b
//   )
//   {
//       static const YV_Cxx::UserExceptionInfo _yvl_raises[] = {
//           {"IDL:M/Failed:1.0", &YV_Cxx::read_and_raise<M::Failed>},
//       };
//       static const YV_Cxx::Operation _yvl_op = {"op", false, _yvl_raises, 1};
//       YV_Cxx::StringStreamable _yvs_a(&a);
//       YV_Cxx::BasicStreamable<CORBA::Long> _yvs_b(&b);
//       CORBA::Long _yvl_result = CORBA::Long();
//       YV_Cxx::BasicStreamable<CORBA::Long> _yvs__result(&_yvl_result);
//       YV_Cxx::CallArguments _yvl_args;
//       _yvl_args.in(_yvs_a).inout(_yvs_b);
//       _yv_invoke(_yvl_op, &_yvl_args, &_yvs__result);
//       return _yvl_result;
//   }
//
// (The descriptors are constant-initialised: no guard, nothing run.) With
// AMI callbacks on, the same follows for the interface's reply handler.
#ifndef VE_CPP_MAINSTARTPOINT_INTERFACE_H
#define VE_CPP_MAINSTARTPOINT_INTERFACE_H

#include "CxxTypeMapping.h"
#include "VE_CPP_MainStartPoint_Type.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

class AST_Attribute;
class AST_Exception;
class AST_Interface;
class AST_Operation;

class VE_CPP_MainStartPoint_Interface : public virtual VE_CPP_MainStartPoint_Type {
public:
    explicit VE_CPP_MainStartPoint_Interface(VIS_Cxx* v) : VE_Cxx(v), VE_CPP_MainStartPoint_Type(v) {}
    long visit(AST_Decl* d) override;

    // How the streamable constructor binds a proxy's parameter `a` of type
    // `t` passed in mode `m`: "&a", "&a, YV_Cxx::usage_borrow", or "a" for
    // an array's slice. The caller's values are read and written in place
    // and never freed by the streamable.
    struct Binding {
        const char* address;  // "&" or ""
        const char* usage;    // ", YV_Cxx::usage_borrow" or ""
    };
    static Binding binding(AST_Type* t, CxxTypeMapping::Mode m);

protected:
    // Which interface each reply handler of a handler graph answers for.
    using HandlerTargets = std::map<AST_Interface*, AST_Interface*>;

    // One parameter of a proxy member.
    struct Param {
        AST_Type* type;
        CxxTypeMapping::Mode mode;
        std::string name;
    };
    // What a proxy member is made of.
    struct ProxyMember {
        std::string_view result_type; // a kept text
        AST_Type* result; // null for void
        std::string name; // fully scoped
        std::vector<Param> params;
        std::string request; // the operation's name in a request
        bool oneway;
        std::vector<AST_Exception*> raises;
        bool has_natives;
    };

    // Everything of one interface (the interface itself or a reply handler).
    virtual void output_interface(CxxPrinter& p, AST_Interface* i, const HandlerTargets& targets);
    virtual void output_narrow(CxxPrinter& p, AST_Interface* i);
    // An abstract interface's narrowings of a CORBA::AbstractBase_ptr and
    // its _yv_from_object.
    void output_abstract_narrow(CxxPrinter& p, const std::string& full, const std::string& proxy);
    // The interface's overloads of the runtime's reference functions
    // (declared with its _ptr type), which take the incomplete type.
    void output_reference_helpers(CxxPrinter& p, AST_Interface* i);
    // The proxy's members for every operation and attribute of the
    // interface and its bases.
    virtual void output_proxy(CxxPrinter& p, AST_Interface* i, const HandlerTargets& targets);
    virtual void output_proxy_member(CxxPrinter& p, const ProxyMember& m);

    // The name under which operation `op` of a reply handler whose target
    // is `target` (null for other interfaces) arrives in a request: its
    // identifier, with a leading "_" for the replies of the target's
    // attribute accessors.
    static std::string request_name(AST_Operation* op, AST_Interface* target);
    // Records in `targets` that handler `h` answers for interface `i`, and
    // so on for their bases, pairwise.
    static void pair_handlers(AST_Interface* h, AST_Interface* i, HandlerTargets& targets, NameResolver& resolver);
};

#endif
