#include "ReplyHandlerBuilder.h"

#include "AMI_ReplyHandlerInterface.h"
#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Module.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Root.h"
#include "AST_Value.h"
#include "CxxRuntimeNames.h"
#include "UTL_IdList.h"

#include <memory>

std::vector<AST_Interface*> ReplyHandlerBuilder::bases_with_handlers(AST_Interface* i, NameResolver& resolver)
{
    std::vector<AST_Interface*> bases;
    for (AST_Interface* b : i->inherits())
        if (!CxxRuntimeNames::provided(b, resolver))
            bases.push_back(b);
    return bases;
}

void ReplyHandlerBuilder::build(AST_Interface* i, AST_Interface* handler)
{
    m_made[i] = handler;
    handler->set_defined_in(i->defined_in());
    handler->set_position(i->file_name() ? std::make_shared<UTL_String>(*i->file_name()) : nullptr, i->line());
    handler->set_in_main_file(i->in_main_file());
    handler->set_repoID(handler_repo_id(i->repoID(), handler->local_name()->str()));
    handler->set_defined(true);

    std::vector<AST_Interface*> bases;
    for (AST_Interface* b : bases_with_handlers(i, m_resolver))
        bases.push_back(handler_of(b));
    if (bases.empty())
        bases.push_back(reply_handler());
    handler->set_inherits(std::move(bases));

    for (const auto& d : i->decls()) {
        if (AST_Operation* op = AST_Operation::narrow_from_decl(d.get()))
            add_operation_replies(handler, op);
        else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d.get()))
            add_attribute_replies(handler, a);
    }
}

std::string ReplyHandlerBuilder::handler_name(AST_Interface* i)
{
    return "AMI_" + i->local_name()->str() + "Handler";
}

std::string ReplyHandlerBuilder::handler_repo_id(const std::string& id, const std::string& name)
{
    if (id.compare(0, 4, "IDL:") != 0)
        return std::string();
    const std::size_t version = id.rfind(':');
    if (version == std::string::npos || version < 4)
        return std::string();
    const std::size_t slash = id.rfind('/', version);
    const std::size_t start = slash == std::string::npos || slash < 4 ? 4 : slash + 1;
    return id.substr(0, start) + name + id.substr(version);
}

AST_Interface* ReplyHandlerBuilder::handler_of(AST_Interface* base)
{
    auto found = m_made.find(base);
    if (found != m_made.end())
        return found->second;
    auto made = std::make_unique<AST_Interface>(Identifier(handler_name(base)), false, false);
    AST_Interface* handler = made.get();
    m_top->keep(std::move(made));
    build(base, handler);
    return handler;
}

std::vector<AST_Module*> ReplyHandlerBuilder::tree_messaging_modules() const
{
    std::vector<AST_Module*> found;
    if (m_root)
        for (const auto& d : m_root->decls())
            if (d->node_type() == AST_Decl::NT_module && d->local_name()->str() == "Messaging")
                found.push_back(AST_Module::narrow_from_decl(d.get()));
    return found;
}

template <class T>
T* ReplyHandlerBuilder::find_in_messaging(const std::string& name, AST_Decl::NodeType kind) const
{
    for (AST_Module* m : tree_messaging_modules())
        if (AST_Decl* d = m->lookup_local(name); d && d->node_type() == kind)
            return T::narrow_from_decl(d);
    return nullptr;
}

AST_Module* ReplyHandlerBuilder::own_messaging()
{
    if (!m_own_messaging) {
        auto module = std::make_unique<AST_Module>(Identifier("Messaging"));
        module->set_defined_in(m_root);
        m_own_messaging = AST_Module::narrow_from_decl(m_top->keep(std::move(module)));
    }
    return m_own_messaging;
}

AST_Interface* ReplyHandlerBuilder::reply_handler()
{
    if (!m_reply_handler)
        m_reply_handler = find_in_messaging<AST_Interface>("ReplyHandler", AST_Decl::NT_interface);
    if (!m_reply_handler) {
        auto rh = std::make_unique<AST_Interface>(Identifier("ReplyHandler"), false, false);
        rh->set_repoID("IDL:omg.org/Messaging/ReplyHandler:1.0");
        rh->set_defined(true);
        m_reply_handler = AST_Interface::narrow_from_decl(own_messaging()->add_decl(std::move(rh)));
    }
    return m_reply_handler;
}

AST_Type* ReplyHandlerBuilder::exception_holder()
{
    if (!m_exception_holder)
        m_exception_holder = find_in_messaging<AST_Value>("ExceptionHolder", AST_Decl::NT_value);
    if (!m_exception_holder) {
        auto eh = std::make_unique<AST_Value>(Identifier("ExceptionHolder"), false, false);
        eh->set_repoID("IDL:omg.org/Messaging/ExceptionHolder:1.0");
        eh->set_defined(true);
        m_exception_holder = AST_Value::narrow_from_decl(own_messaging()->add_decl(std::move(eh)));
    }
    return m_exception_holder;
}

AST_Type* ReplyHandlerBuilder::void_type()
{
    if (m_void)
        return m_void;
    if (m_root)
        for (const auto* list : {&m_root->decls(), &m_root->local_types()})
            for (const auto& d : *list)
                if (AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(d.get());
                    p && p->pt() == AST_PredefinedType::PT_void)
                    return m_void = p;
    auto v = std::make_unique<AST_PredefinedType>(AST_PredefinedType::PT_void, Identifier("void"));
    v->set_defined_in(m_root);
    m_void = AST_PredefinedType::narrow_from_decl(m_top->keep(std::move(v)));
    return m_void;
}

AST_Operation* ReplyHandlerBuilder::add_reply(AST_Interface* handler, const std::string& name)
{
    auto op = std::make_unique<AST_Operation>(void_type(), AST_Operation::OP_noflags, Identifier(name));
    op->set_position(handler->file_name() ? std::make_shared<UTL_String>(*handler->file_name()) : nullptr,
                     handler->line());
    op->set_in_main_file(handler->in_main_file());
    return AST_Operation::narrow_from_decl(handler->add_decl(std::move(op)));
}

void ReplyHandlerBuilder::add_in(AST_Operation* op, AST_Type* type, const std::string& name)
{
    op->add_decl(std::make_unique<AST_Argument>(AST_Argument::dir_IN, type, UTL_IdList(Identifier(name))));
}

void ReplyHandlerBuilder::add_excep(AST_Interface* handler, const std::string& name)
{
    add_in(add_reply(handler, name + "_excep"), exception_holder(), "excep_holder");
}

bool ReplyHandlerBuilder::is_void(AST_Type* t)
{
    AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(t);
    return !t || (p && p->pt() == AST_PredefinedType::PT_void);
}

void ReplyHandlerBuilder::add_operation_replies(AST_Interface* handler, AST_Operation* op)
{
    if (op->is_oneway())
        return;
    const std::string name = op->local_name()->str();
    AST_Operation* reply = add_reply(handler, name);
    if (!is_void(op->return_type()))
        add_in(reply, op->return_type(), "ami_return_val");
    for (const auto& d : op->decls())
        if (AST_Argument* arg = AST_Argument::narrow_from_decl(d.get());
            arg && arg->direction() != AST_Argument::dir_IN)
            add_in(reply, arg->field_type(), arg->local_name()->str());
    add_excep(handler, name);
}

void ReplyHandlerBuilder::add_attribute_replies(AST_Interface* handler, AST_Attribute* a)
{
    const std::string name = a->local_name()->str();
    add_in(add_reply(handler, "get_" + name + "_complete"), a->field_type(), "ami_return_val");
    add_excep(handler, "get_" + name);
    if (!a->readonly()) {
        add_reply(handler, "set_" + name + "_complete");
        add_excep(handler, "set_" + name);
    }
}
