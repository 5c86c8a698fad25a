// Builds the reply-handler interface of an interface for the AMI
// callbacks (AMI_<I>Handler, with a reply and an _excep operation for each
// operation and attribute) and those of its bases, as tree nodes that the
// header emitter then writes like any interface.
#ifndef REPLYHANDLERBUILDER_H
#define REPLYHANDLERBUILDER_H

#include "AST_Decl.h"

#include <map>
#include <string>
#include <vector>

class AMI_ReplyHandlerInterface;
class AST_Attribute;
class AST_Interface;
class AST_Module;
class AST_Operation;
class AST_Root;
class AST_Type;
class NameResolver;

// Every node it makes is kept by the top handler.
class ReplyHandlerBuilder {
public:
    ReplyHandlerBuilder(AMI_ReplyHandlerInterface* top, AST_Root* root, NameResolver& resolver)
        : m_top(top), m_root(root), m_resolver(resolver)
    {
    }

    // Fills `handler` as the reply handler of `i`.
    void build(AST_Interface* i, AST_Interface* handler);

    // The bases of `i` whose reply handlers the handler of `i` derives
    // from: all but those the runtime defines (CORBA::Policy), which have
    // no handler; their replies are not part of the handler.
    static std::vector<AST_Interface*> bases_with_handlers(AST_Interface* i, NameResolver& resolver);

private:
    static std::string handler_name(AST_Interface* i);

    // "IDL:M/I:1.0" gives "IDL:M/AMI_IHandler:1.0".
    static std::string handler_repo_id(const std::string& id, const std::string& name);
    AST_Interface* handler_of(AST_Interface* base);

    // The root's module Messaging openings, in order.
    std::vector<AST_Module*> tree_messaging_modules() const;

    template <class T>
    T* find_in_messaging(const std::string& name, AST_Decl::NodeType kind) const;

    // A module Messaging of our own at the root, made when first needed.
    AST_Module* own_messaging();
    AST_Interface* reply_handler();
    AST_Type* exception_holder();
    AST_Type* void_type();
    AST_Operation* add_reply(AST_Interface* handler, const std::string& name);
    static void add_in(AST_Operation* op, AST_Type* type, const std::string& name);
    void add_excep(AST_Interface* handler, const std::string& name);
    static bool is_void(AST_Type* t);

    // op(in <result> ami_return_val, in <out and inout values>) and
    // op_excep(in Messaging::ExceptionHolder excep_holder); a oneway
    // operation has no reply.
    void add_operation_replies(AST_Interface* handler, AST_Operation* op);
    void add_attribute_replies(AST_Interface* handler, AST_Attribute* a);
    AMI_ReplyHandlerInterface* m_top;
    AST_Root* m_root;
    NameResolver& m_resolver;
    // Handlers made so far, so that a base reached along two paths gets one.
    std::map<AST_Interface*, AST_Interface*> m_made;
    AST_Module* m_own_messaging = nullptr;
    AST_Interface* m_reply_handler = nullptr;
    AST_Type* m_exception_holder = nullptr;
    AST_Type* m_void = nullptr;
};


#endif
