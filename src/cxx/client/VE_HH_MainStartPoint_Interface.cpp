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
#include "ReplyHandlerBuilder.h"
#include "UTL_IdList.h"
#include "VE_Client_Interface.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"
#include "VIS_HH_MainStartPoint.h"

#include <algorithm>
#include <map>
#include <memory>

namespace {

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
        p.print(i->is_abstract() ? "public virtual CORBA::AbstractBase" : "public virtual CORBA::Object");
    p.list(i->inherits(), ",\n", [&](AST_Interface* base) { p.print("public virtual $base$", {{"base", text.full(base)}}); });
    // A concrete interface whose bases are all abstract is an object all
    // the same.
    const auto concrete = [](AST_Interface* base) { return !base->is_abstract(); };
    if (!i->is_abstract() && !i->inherits().empty() &&
        std::none_of(i->inherits().begin(), i->inherits().end(), concrete))
        p.print(",\npublic virtual CORBA::Object");
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
    // An abstract interface narrows an AbstractBase_ptr, and its counting
    // goes to the object or the value it is.
    const bool abstract = i->is_abstract();
    const CxxPrinter::Vars vars{{"ptr", ptr}, {"from", abstract ? "CORBA::AbstractBase_ptr" : "CORBA::Object_ptr"}};
    if (abstract)
        p.print("static $ptr$ _duplicate($ptr$ _yvp_obj) { CORBA::AbstractBase::_duplicate(_yvp_obj); return _yvp_obj; }\n",
                vars);
    else
        p.print("static $ptr$ _duplicate($ptr$ _yvp_obj) { if (_yvp_obj) _yvp_obj->_yv_add_ref(); return _yvp_obj; }\n",
                vars);
    p.print("static $ptr$ _nil() { return 0; }\n"
            "static $ptr$ _narrow($from$ _yvp_obj);\n"
            "static $ptr$ _unchecked_narrow($from$ _yvp_obj);\n",
            vars);
    if (abstract)
        p.print("// A new proxy of an object reference read from a message.\n"
                "static $ptr$ _yv_from_object(CORBA::Object_ptr _yvp_obj);\n",
                vars);
    p.print("static const YV_FWString _yv_fw_type_id;\n\n");
    if (!abstract && abstract_kind(i))
        write_object_identity(p);
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
    // The proxy of an abstract interface is the object-reference kind of it.
    const char* head = base ? "class $macro$$proxy$ :\n    public $base$,\n    public virtual $full$\n{\n  public:\n"
                       : i->is_abstract()
                           ? "class $macro$$proxy$ :\n    public virtual $full$,\n    public virtual CORBA::Object\n{\n  public:\n"
                           : "class $macro$$proxy$ :\n    public virtual $full$\n{\n  public:\n";
    auto cls = p.block(head, "};\n\n", vars);
    p.print(base ? "explicit $proxy$(CORBA::Object_ptr _yvp_target) : CORBA::Object(_yvp_target), "
                   "$base$(_yvp_target) {}\n\n"
                 : "explicit $proxy$(CORBA::Object_ptr _yvp_target) : CORBA::Object(_yvp_target) {}\n\n",
            vars);
    if (abstract_kind(i))
        write_object_identity(p);

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

bool VE_HH_MainStartPoint_Interface::abstract_kind(AST_Interface* i)
{
    if (!i || dynamic_cast<AMI_ReplyHandlerInterface*>(i))
        return false;
    if (i->is_abstract())
        return true;
    return std::any_of(i->inherits().begin(), i->inherits().end(), [](AST_Interface* b) { return abstract_kind(b); });
}

void VE_HH_MainStartPoint_Interface::write_object_identity(CxxPrinter& p)
{
    // Both CORBA::Object and CORBA::AbstractBase release; this is an object.
    p.print("CORBA::Object_ptr _yv_object() override { return this; }\n"
            "using CORBA::Object::_yv_release;\n\n");
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
    ReplyHandlerBuilder builder(top.get(), root_of(i), resolver());
    builder.build(i, top.get());
    return top.release(); // the caller owns the handler and deletes it
}
