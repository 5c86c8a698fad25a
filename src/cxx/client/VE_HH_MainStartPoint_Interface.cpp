#include "VE_HH_MainStartPoint_Interface.h"

#include "AMI_ReplyHandlerInterface.h"
#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Module.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Root.h"
#include "AST_Value.h"
#include "CxxClientText.h"
#include "CxxPureVirtualMembers.h"
#include "CxxRuntimeNames.h"
#include "GEN_CPlusPlus.h"
#include "OverrideHHVisit.h"
#include "UTL_IdList.h"
#include "VE_Client_Interface.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"
#include "VIS_HH_MainStartPoint.h"

#include <algorithm>
#include <map>
#include <memory>

namespace {

// Builds the reply handlers of one interface and of its bases. Every node
// it makes is kept by the top handler.
class ReplyHandlerBuilder {
public:
    ReplyHandlerBuilder(AMI_ReplyHandlerInterface* top, AST_Root* root) : m_top(top), m_root(root) {}

    // Fills `handler` as the reply handler of `i`.
    void build(AST_Interface* i, AST_Interface* handler)
    {
        m_made[i] = handler;
        handler->set_defined_in(i->defined_in());
        handler->set_position(i->file_name() ? std::make_shared<UTL_String>(*i->file_name()) : nullptr, i->line());
        handler->set_in_main_file(i->in_main_file());
        handler->set_repoID(handler_repo_id(i->repoID(), handler->local_name()->str()));
        handler->set_defined(true);

        std::vector<AST_Interface*> bases;
        for (AST_Interface* b : i->inherits())
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

private:
    static std::string handler_name(AST_Interface* i) { return "AMI_" + i->local_name()->str() + "Handler"; }

    // "IDL:M/I:1.0" gives "IDL:M/AMI_IHandler:1.0".
    static std::string handler_repo_id(const std::string& id, const std::string& name)
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

    AST_Interface* handler_of(AST_Interface* base)
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

    // The root's module Messaging openings, in order.
    std::vector<AST_Module*> tree_messaging_modules() const
    {
        std::vector<AST_Module*> found;
        if (m_root)
            for (const auto& d : m_root->decls())
                if (d->node_type() == AST_Decl::NT_module && d->local_name()->str() == "Messaging")
                    found.push_back(AST_Module::narrow_from_decl(d.get()));
        return found;
    }

    template <class T>
    T* find_in_messaging(const std::string& name, AST_Decl::NodeType kind) const
    {
        for (AST_Module* m : tree_messaging_modules())
            if (AST_Decl* d = m->lookup_local(name); d && d->node_type() == kind)
                return T::narrow_from_decl(d);
        return nullptr;
    }

    // A module Messaging of our own at the root, made when first needed.
    AST_Module* own_messaging()
    {
        if (!m_own_messaging) {
            auto module = std::make_unique<AST_Module>(Identifier("Messaging"));
            module->set_defined_in(m_root);
            m_own_messaging = AST_Module::narrow_from_decl(m_top->keep(std::move(module)));
        }
        return m_own_messaging;
    }

    AST_Interface* reply_handler()
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

    AST_Type* exception_holder()
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

    AST_Type* void_type()
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

    AST_Operation* add_reply(AST_Interface* handler, const std::string& name)
    {
        auto op = std::make_unique<AST_Operation>(void_type(), AST_Operation::OP_noflags, Identifier(name));
        op->set_position(handler->file_name() ? std::make_shared<UTL_String>(*handler->file_name()) : nullptr,
                         handler->line());
        op->set_in_main_file(handler->in_main_file());
        return AST_Operation::narrow_from_decl(handler->add_decl(std::move(op)));
    }

    static void add_in(AST_Operation* op, AST_Type* type, const std::string& name)
    {
        op->add_decl(std::make_unique<AST_Argument>(AST_Argument::dir_IN, type, UTL_IdList(Identifier(name))));
    }

    void add_excep(AST_Interface* handler, const std::string& name)
    {
        add_in(add_reply(handler, name + "_excep"), exception_holder(), "excep_holder");
    }

    static bool is_void(AST_Type* t)
    {
        AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(t);
        return !t || (p && p->pt() == AST_PredefinedType::PT_void);
    }

    // op(in <result> ami_return_val, in <out and inout values>) and
    // op_excep(in Messaging::ExceptionHolder excep_holder); a oneway
    // operation has no reply.
    void add_operation_replies(AST_Interface* handler, AST_Operation* op)
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

    void add_attribute_replies(AST_Interface* handler, AST_Attribute* a)
    {
        const std::string name = a->local_name()->str();
        add_in(add_reply(handler, "get_" + name + "_complete"), a->field_type(), "ami_return_val");
        add_excep(handler, "get_" + name);
        if (!a->readonly()) {
            add_reply(handler, "set_" + name + "_complete");
            add_excep(handler, "set_" + name);
        }
    }

    AMI_ReplyHandlerInterface* m_top;
    AST_Root* m_root;
    // Handlers made so far, so that a base reached along two paths gets one.
    std::map<AST_Interface*, AST_Interface*> m_made;
    AST_Module* m_own_messaging = nullptr;
    AST_Interface* m_reply_handler = nullptr;
    AST_Type* m_exception_holder = nullptr;
    AST_Type* m_void = nullptr;
};

AST_Root* root_of(AST_Decl* d)
{
    while (d && d->node_type() != AST_Decl::NT_root)
        d = ScopeAsDecl(d->defined_in());
    return AST_Root::narrow_from_decl(d);
}

} // namespace

long VE_HH_MainStartPoint_Interface::visit(AST_Decl* d)
{
    AST_Interface* i = AST_Interface::narrow_from_decl(d);
    if (!i)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    if (CxxRuntimeNames::provided(i, resolver()))
        text.printer().print("// $name$: defined by the runtime\n\n", {{"name", text.full(i)}});
    else
        output_interface(i);
    GEN_CPlusPlus* gen = text.generator();
    if (gen && gen->ami_callbacks_on() && !i->is_local()) {
        std::unique_ptr<AST_Interface> handler(create_full_ami_handler(i));
        output_interface(handler.get());
    }
    return 1;
}

void VE_HH_MainStartPoint_Interface::output_interface(AST_Interface* i)
{
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    const std::string name = text.local(i);
    // A reply handler is made afresh for every use, so only tree nodes are
    // remembered as announced.
    const bool handler = dynamic_cast<AMI_ReplyHandlerInterface*>(i) != nullptr;
    if (handler || text.first_companions(i)) {
        p.print("class $name$;\n", {{"name", name}});
        text.write_companions(i, name, i->defined_in());
        p.print("\n");
    }
    p.print("class $macro$$name$ :\n", {{"macro", text.class_macro()}, {"name", name}});
    p.indent();
    if (i->inherits().empty())
        p.print("public virtual CORBA::Object");
    p.list(i->inherits(), ",\n", [&](AST_Interface* base) { p.print("public virtual $base$", {{"base", text.full(base)}}); });
    p.print("\n");
    p.outdent();
    {
        auto cls = p.block("{\n  public:\n", "};\n");
        output_standard_members(p, i);
        output_members(i);
    }
    text.write_typecode_declaration(i);
    p.print("\n");
    if (!i->is_local())
        output_proxy(i);
}

void VE_HH_MainStartPoint_Interface::output_standard_members(CxxPrinter& p, AST_Interface* i)
{
    const std::string ptr = CxxClientText(visitor()).full(i) + "_ptr";
    const CxxPrinter::Vars vars{{"ptr", ptr}};
    p.print("static $ptr$ _duplicate($ptr$ _yvp_obj) { if (_yvp_obj) _yvp_obj->_yv_add_ref(); return _yvp_obj; }\n",
            vars);
    p.print("static $ptr$ _nil() { return 0; }\n", vars);
    p.print("static $ptr$ _narrow(CORBA::Object_ptr _yvp_obj);\n", vars);
    p.print("static $ptr$ _unchecked_narrow(CORBA::Object_ptr _yvp_obj);\n", vars);
    p.print("static const YV_FWString _yv_fw_type_id;\n\n");
}

void VE_HH_MainStartPoint_Interface::output_members(AST_Interface* i)
{
    // Declarations name their types fully scoped.
    UTL_Scope* saved = visitor()->scope();
    visitor()->set_scope(nullptr);
    CxxPureVirtualMembers members(visitor());
    for (const auto& member : i->decls()) {
        AST_Decl* d = member.get();
        if (!members.write(d) && d->in_main_file())
            VIS_HH_MainStartPoint::write_one(os(), indent().get_indent(), d, generator());
    }
    visitor()->set_scope(saved);
}

void VE_HH_MainStartPoint_Interface::output_proxy(AST_Interface* i)
{
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    const std::string proxy = "YV_Gen_DynamicProxy_" + text.local(i);
    // The proxy of the first base brings the members of that base and of
    // its bases; CORBA::Object is a virtual base, which the most derived
    // proxy constructs.
    AST_Interface* base = proxy_base(i);
    const std::string base_proxy =
        base ? text.mapping().scope_prefix(base) + "YV_Gen_DynamicProxy_" + text.local(base) : std::string();
    const std::string macro = text.class_macro();
    const std::string full = text.full(i);
    const CxxPrinter::Vars vars{{"macro", macro}, {"proxy", proxy}, {"full", full}, {"base", base_proxy}};
    auto cls = p.block(base ? "class $macro$$proxy$ :\n    public $base$,\n    public virtual $full$\n{\n  public:\n"
                            : "class $macro$$proxy$ :\n    public virtual $full$\n{\n  public:\n",
                       "};\n\n", vars);
    p.print(base ? "explicit $proxy$(CORBA::Object_ptr _yvp_target) : CORBA::Object(_yvp_target), "
                   "$base$(_yvp_target) {}\n\n"
                 : "explicit $proxy$(CORBA::Object_ptr _yvp_target) : CORBA::Object(_yvp_target) {}\n\n",
            vars);

    UTL_Scope* saved = visitor()->scope();
    visitor()->set_scope(nullptr);
    VE_HH_OpDecl op_decl(visitor(), OverrideHHVisit::instance(), nullptr, nullptr, 1, 1, "%s");
    VE_HH_AttrDecl attr_decl(visitor(), OverrideHHVisit::instance(), nullptr, nullptr, 1, 1, "_yvvar_%s");
    for (AST_Interface* x : proxy_interfaces(i)) {
        for (const auto& member : x->decls()) {
            if (AST_Operation* op = AST_Operation::narrow_from_decl(member.get())) {
                op_decl.visit(op);
                p.raw("\n\n");
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(member.get())) {
                attr_decl.output_get(a);
                p.raw("\n\n");
                if (!a->readonly()) {
                    attr_decl.output_set(a);
                    p.raw("\n");
                }
            }
        }
    }
    visitor()->set_scope(saved);
}

AST_Interface* VE_HH_MainStartPoint_Interface::proxy_base(AST_Interface* i)
{
    if (!i || dynamic_cast<AMI_ReplyHandlerInterface*>(i) || i->inherits().empty())
        return nullptr;
    AST_Interface* base = i->inherits().front();
    if (!base || base->is_local() || CxxRuntimeNames::provided(base, resolver()))
        return nullptr;
    return base;
}

std::vector<AST_Interface*> VE_HH_MainStartPoint_Interface::proxy_interfaces(AST_Interface* i)
{
    VE_Client_Interface graph(visitor());
    std::vector<AST_Interface*> covered;
    long keys = 0;
    if (AST_Interface* base = proxy_base(i))
        graph.find_all_interfaces(base, covered, keys);
    std::vector<AST_Interface*> all;
    graph.find_all_interfaces(i, all, keys);
    std::vector<AST_Interface*> own;
    for (AST_Interface* x : all)
        if (std::find(covered.begin(), covered.end(), x) == covered.end())
            own.push_back(x);
    return own;
}

AST_Interface* VE_HH_MainStartPoint_Interface::create_full_ami_handler(AST_Interface* i)
{
    if (!i)
        return nullptr;
    auto top = std::make_unique<AMI_ReplyHandlerInterface>(Identifier("AMI_" + i->local_name()->str() + "Handler"));
    ReplyHandlerBuilder builder(top.get(), root_of(i));
    builder.build(i, top.get());
    return top.release(); // the caller owns the handler and deletes it
}
