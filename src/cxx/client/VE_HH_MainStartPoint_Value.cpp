#include "VE_HH_MainStartPoint_Value.h"

#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Factory.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_StateMember.h"
#include "AST_Value.h"
#include "CxxClientText.h"
#include "CxxPureVirtualMembers.h"
#include "CxxMarshalWriter.h"
#include "CxxRuntimeNames.h"
#include "CxxValueWriter.h"
#include "PureVirtualHHVisit.h"
#include "CxxMemberDeclaration.h"
#include "VE_Client_Interface.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"
#include "VIS_HH_MainStartPoint.h"

#include <algorithm>
#include <vector>

long VE_HH_MainStartPoint_Value::visit(AST_Decl* d)
{
    AST_Value* v = AST_Value::narrow_from_decl(d);
    if (!v)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxRuntimeNames::provided(v, resolver())) {
        CxxClientText text(visitor());
        text.printer().print("// $name$: defined by the runtime\n\n", {{"name", text.full(v)}});
        return 1;
    }
    output_value(v);
    output_init(v);
    return 1;
}

bool VE_HH_MainStartPoint_Value::supports_abstract(AST_Value* v)
{
    if (!v)
        return false;
    for (AST_Interface* supported : v->supports())
        if (supported && supported->is_abstract())
            return true;
    for (AST_Value* base : v->inherits())
        if (supports_abstract(base))
            return true;
    return false;
}

void VE_HH_MainStartPoint_Value::output_value(AST_Value* v)
{
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    const std::string name = text.local(v);
    const std::string full = text.full(v);
    if (text.first_companions(v)) {
        p.print("class $name$;\n", {{"name", name}});
        text.write_companions(v, name, v->defined_in());
        p.print("\n");
    }
    p.print("class $macro$$name$ :\n", {{"macro", text.class_macro()}, {"name", name}});
    p.indent();
    // A custom value writes its own state (its custom bases say so already).
    if (v->inherits().empty())
        p.print(v->is_custom() ? "public virtual CORBA::CustomMarshal" : "public virtual CORBA::ValueBase");
    p.list(v->inherits(), ",\n", [&](AST_Value* base) { p.print("public virtual $base$", {{"base", text.full(base)}}); });
    if (v->is_custom() && !v->inherits().empty() &&
        std::none_of(v->inherits().begin(), v->inherits().end(),
                     [](AST_Value* base) { return base && base->is_custom(); }))
        p.print(",\npublic virtual CORBA::CustomMarshal");
    // A value supporting an abstract interface is an instance of it.
    for (AST_Interface* supported : v->supports())
        if (supported && supported->is_abstract())
            p.print(",\npublic virtual $base$", {{"base", text.full(supported)}});
    p.print("\n");
    p.outdent();
    {
        auto cls = p.block("{\n  public:\n", "};\n");
        output_members(v);

        UTL_Scope* saved = visitor()->scope();
        visitor()->set_scope(nullptr);
        DeclMap done;
        for (AST_Interface* supported : v->supports())
            output_supported(v, supported, done);
        visitor()->set_scope(saved);
        p.print("static $full$* _downcast(CORBA::ValueBase* _yvp_value) { return dynamic_cast<$full$*>(_yvp_value); }\n",
                {{"full", full}});
        p.print("static const YV_FWString _yv_fw_type_id;\n");
        if (supports_abstract(v))
            p.print("CORBA::ValueBase* _yv_value() override { return this; }\n");
        const CxxMarshalWriter marshal(text.mapping(), resolver());
        CxxValueWriter(text.mapping(), resolver(), marshal).write_class_members(p, v);

        bool private_state = false;
        for (const auto& member : v->decls())
            if (AST_StateMember* m = AST_StateMember::narrow_from_decl(member.get()); m && !m->is_public()) {
                if (!private_state) {
                    p.outdent();
                    p.print("\n  protected:\n");
                    p.indent();
                }
                private_state = true;
                output_state_member(m);
            }
    }
    text.write_typecode_declaration(v);
    p.print("\n");
}

void VE_HH_MainStartPoint_Value::output_members(AST_Value* v)
{
    UTL_Scope* saved = visitor()->scope();
    visitor()->set_scope(nullptr);
    CxxPureVirtualMembers members(visitor());
    for (const auto& member : v->decls()) {
        AST_Decl* d = member.get();
        if (members.write(d))
            continue;
        if (AST_StateMember* m = AST_StateMember::narrow_from_decl(d)) {
            if (m->is_public())
                output_state_member(m);
        } else if (d->node_type() != AST_Decl::NT_factory && d->in_main_file()) {
            VIS_HH_MainStartPoint::write_one(os(), indent().get_indent(), d, generator());
        }
    }
    visitor()->set_scope(saved);
}

void VE_HH_MainStartPoint_Value::output_state_member(AST_StateMember* m)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = m->field_type();
    const std::string name = text.local(m);
    const std::string writer = map.member_writer(t);
    const std::string reader = map.member_reader(t);
    CxxPrinter p = text.printer();
    const CxxPrinter::Vars vars{{"name", name}, {"writer", writer}, {"reader", reader}};
    p.print("virtual void $name$($writer$ _yvp_value) = 0;\n", vars);
    p.print("virtual $reader$ $name$() const = 0;\n", vars);
    if (CxxTypeMapping::has_member_modifier(t))
        p.print("virtual $modifier$ $name$() = 0;\n", {{"modifier", map.member_modifier(t)}, {"name", name}});
    p.print("\n");
}

void VE_HH_MainStartPoint_Value::output_init(AST_Value* v)
{
    std::vector<AST_Factory*> factories;
    for (const auto& member : v->decls())
        if (AST_Factory* f = AST_Factory::narrow_from_decl(member.get()))
            factories.push_back(f);
    const bool default_factory = CxxValueWriter::has_default_factory(v);
    if (factories.empty() && !default_factory)
        return;
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    const std::string init = text.local(v) + "_init";
    const std::string full = text.full(v) + "_init";
    const std::string macro = text.class_macro();
    const CxxPrinter::Vars vars{{"macro", macro}, {"init", init}, {"full", full}};
    auto cls = p.block("class $macro$$init$ :\n    public CORBA::ValueFactoryBase\n{\n  public:\n", "};\n\n", vars);
    if (default_factory) {
        // Makes the OBV_ class; registered when the program starts.
        p.print("CORBA::ValueBase* create_for_unmarshal() override;\n");
    } else {
        p.print("virtual ~$init$() {}\n\n", vars);
    }
    for (AST_Factory* f : factories) {
        CxxMemberDeclaration decl(text.full(v) + "*", text.local(f));
        for (const auto& member : f->decls())
            if (AST_Argument* arg = AST_Argument::narrow_from_decl(member.get()))
                decl.add_parameter(text.mapping().param(arg->field_type(), CxxTypeMapping::M_in), text.local(arg));
        decl.write(os(), indent(), PureVirtualHHVisit::instance(), nullptr);
        p.raw("\n\n");
    }
    p.print("static $full$* _downcast(CORBA::ValueFactoryBase* _yvp_factory) { return dynamic_cast<$full$*>(_yvp_factory); }\n",
            vars);
}

void VE_HH_MainStartPoint_Value::output_supported(AST_Value*, AST_Interface* supported, DeclMap& done)
{
    if (!supported)
        return;
    std::vector<AST_Interface*> interfaces;
    long keys = 0;
    VE_Client_Interface graph(visitor());
    graph.find_all_interfaces(supported, interfaces, keys);

    CxxPrinter p = CxxClientText(visitor()).printer();
    VE_HH_OpDecl op_decl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s");
    VE_HH_AttrDecl attr_decl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s");
    for (AST_Interface* i : interfaces) {
        for (const auto& member : i->decls()) {
            AST_Decl* d = member.get();
            if (d->node_type() != AST_Decl::NT_op && d->node_type() != AST_Decl::NT_attr)
                continue;
            if (!done.insert(DeclPointerHolder{d}, DeclPointerHolder{d}))
                continue;
            if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
                op_decl.visit(op);
                p.raw("\n\n");
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d)) {
                attr_decl.output_get(a);
                p.raw("\n\n");
                if (!a->readonly()) {
                    attr_decl.output_set(a); // ends its own line
                    p.raw("\n");
                }
            }
        }
    }
}
