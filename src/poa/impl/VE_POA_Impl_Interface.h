// The implementation file's interface emitter: defines the members of an
// interface's POA skeleton class that the skeleton header declares. These
// are the destructor, _this, _yv_is_a, _primary_interface and the narrowing
// members; with dispatch generation on, also _lookup_dispatcher with its
// static table of operation names and one dispatch function per operation
// and attribute accessor. With AMI callbacks on, the skeleton of the
// interface's reply handler follows, written by the same emitter.
//
// The class is written in parts: the walk, the standard members and the
// narrowing here; the dispatch functions in VE_POA_Impl_Interface_Dispatch
// (frame and colocated bodies) and VE_POA_Impl_Interface_Remote
// (request-based bodies); the lookup function and its table with the
// operation dictionary, in opdict/VE_POA_Impl_Interface_Table.
//
// Every step is virtual and called through the virtual table, so a derived
// emitter can replace any single one.
#ifndef VE_POA_IMPL_INTERFACE_H
#define VE_POA_IMPL_INTERFACE_H

#include "AST_Argument.h"
#include "CxxPrinter.h"
#include "IDL_OpDict.h"
#include "VE_Client_Interface.h"

#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class AST_Attribute;
class AST_Interface;
class AST_Operation;
class AST_Type;
class POA_SkeletonNames;

// The class and its virtual steps are named as the plug-in's published
// interface has them; the private helpers are ours (docs/fixed-and-ours.md).
class VE_POA_Impl_Interface : public virtual VE_Client_Interface {
public:
    explicit VE_POA_Impl_Interface(VIS_Cxx* v);
    long visit(AST_Decl* d) override;
    void output_dtor(AST_Interface* i) override;

protected:
    // The standard members.
    virtual void output_is_a(AST_Interface* i);
    virtual void output_primary_intf(AST_Interface* i);
    virtual void output_this(AST_Interface* i);

    // Dispatch functions: the frame (selection, head, prologue, epilogue).
    virtual void output_methods(AST_Interface* i);
    virtual void output_attribute(AST_Attribute* a);
    virtual void output_op_dispatch(AST_Operation* op);
    virtual void output_get_dispatch(AST_Attribute* a);
    virtual void output_set_dispatch(AST_Attribute* a);
    virtual void output_dispatch_prolog(AST_Interface* i);
    // `op` is null for attribute accessors.
    virtual void output_dispatch_epilog(AST_Operation* op);
    // The colocated bodies: arguments bound to the caller's streamables.
    virtual void output_op_dispatch_local(AST_Operation* op);
    virtual void output_op_dispatch_local_invoke(AST_Operation* op);
    virtual void output_op_dispatch_local_extract(AST_Operation* op);
    virtual void output_op_dispatch_local_extract_streamable(AST_Type* t, unsigned long position, const char* name);
    virtual void output_op_dispatch_local_declare_and_extract_variable(AST_Type* t, const char* name, AST_Argument::Direction dir, long is_result);
    // The request-based bodies: named values on the stack.
    virtual void output_op_dispatch_remote(AST_Operation* op);
    virtual void output_get_dispatch_local(AST_Attribute* a);
    virtual void output_get_dispatch_remote(AST_Attribute* a);
    virtual void output_set_dispatch_local(AST_Attribute* a);
    virtual void output_set_dispatch_remote(AST_Attribute* a);
    virtual void output_dispatch_remote_nv_array(unsigned long count);
    virtual void output_dispatch_remote_nvlist(unsigned long count);
    virtual void output_dispatch_remote_arg(AST_Argument* arg, unsigned long position);
    virtual void output_dispatch_remote_result(AST_Type* t);
    virtual void output_dispatch_remote_set_result();
    virtual void output_op_dispatch_invoke(AST_Operation* op);
    virtual void output_get_dispatch_invoke(AST_Attribute* a);
    virtual void output_set_dispatch_invoke(AST_Attribute* a);
    virtual unsigned long calc_num_args(AST_Operation* op);
    // 1 for the predefined void type itself (typedefs are not looked through).
    virtual long is_void(AST_Type* t);

    // The lookup function and its table.
    virtual void outputEmptyDispatch(AST_Interface* i);
    virtual void outputHashDispatch(AST_Interface* i);
    // Writes the table's definitions; answers the slot count.
    virtual int output_static_hashtable(AST_Interface* i);

    // Narrowing.
    virtual void output_poa_narrow_all(AST_Interface* i);
    virtual void output_poa_narrow(AST_Interface* i);
    virtual void output_no_RTTI_poa_narrow(AST_Interface* i);
    virtual void output_RTTI_poa_narrow(AST_Interface* i);

    // Table filling and printing.
    virtual void insert_hash_entries(AST_Interface* i, IDL_OpDict& dict);
    // Writes the entries of a chain from its end back to `e`.
    virtual void output_entry(const IDL_OpDict::HashEntry* e, int slot, int depth);

    // Writes a typecode for each anonymous string type of an operation's
    // arguments and result, or of an attribute's type.
    void output_anonymous_typecodes(AST_Decl* d);

    // Non-zero while the skeleton of `ami_target`'s reply handler is written.
    long ami_handler_on;
    AST_Interface* ami_target;

private:
    // Shared shapes of the generated text.
    // A definition's head as the skeleton members write it: `head` (the
    // result line and "<name>(") unindented, `params` one level deeper,
    // ")" and "{" unindented.
    static void definition_head(CxxPrinter& p, const CxxPrinter::Text& head, const CxxPrinter::Text& params,
                                CxxPrinter::Vars vars);
    // The "void" line and the name line that open a dispatch function.
    void output_dispatch_head(AST_Decl* d, const char* accessor);
    // The result's streamable pointer of a colocated body (no null test).
    void output_result_streamable(AST_Type* t);
    // "else", "{" and the request's ORB: how every request-based body
    // begins; output_dispatch_remote_set_result closes the block.
    void output_remote_open();
    // "<result> = <servant>-><operation>(<arguments>);" for an operation,
    // the arguments named as the colocated body's temporaries or as the
    // request-based body's variables, between the two completion states.
    void output_operation_call(AST_Operation* op, bool temporaries);

    POA_SkeletonNames names() const;
    // The dispatch function of an operation (accessor "") or of an
    // attribute's reader ("_get_") or writer ("_set_"), fully scoped. Made
    // once per declaration: every interface's table names the dispatch
    // functions of all its bases again.
    const std::string& dispatch_function_name(AST_Decl* d, const char* accessor) const;
    // The skeleton class's fully scoped name, made once per interface.
    const std::string& scoped_skeleton(AST_Interface* i) const;
    // The key under which the reply handler's operation is stored: its IDL
    // identifier, with a leading "_" for the replies of ami_target's
    // attribute accessors.
    std::string handler_operation_key(AST_Operation* op);
    // The bit count of the interface's table from the counter and -p.
    unsigned long table_bits(AST_Interface* i, long counter) const;

    // The operation's arguments, in order.
    const std::vector<AST_Argument*>& arguments(AST_Operation* op);
    // The skeleton class's name as seen from the class itself.
    const std::string& skeleton_in_itself(AST_Interface* i);
    // Drops what the members below keep, which is keyed by node address.
    void forget_kept_names();

    // Texts that client-side visitors write for a type.
    const std::string& streamable_class(AST_Type* t);
    std::string fully_scoped(AST_Decl* d) const;
    UTL_Scope* root_scope() const;

    // Made once per node: each interface's dispatch functions and table
    // name the operations, arguments and types of all its bases again.
    // dispatch_function_name's names, by accessor "", "_get_", "_set_".
    mutable std::unordered_map<const AST_Decl*, std::array<std::string, 3>> m_dispatch_names;
    mutable std::unordered_map<const AST_Interface*, std::string> m_scoped_skeletons;
    std::unordered_map<const AST_Operation*, std::vector<AST_Argument*>> m_arguments;
    std::unordered_map<const AST_Type*, std::string> m_streamables;
    // Each skeleton class's name as seen from itself.
    std::unordered_map<const AST_Interface*, std::string> m_skeletons;
};

#endif
