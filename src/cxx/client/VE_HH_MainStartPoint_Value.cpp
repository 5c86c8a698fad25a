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
#include "CxxRuntimeNames.h"
#include "PureVirtualHHVisit.h"
#include "CxxMemberDeclaration.h"
#include "VE_Client_Interface.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"
#include "VIS_HH_MainStartPoint.h"

#include <ostream>
#include <vector>

long VE_HH_MainStartPoint_Value::visit(AST_Decl* d)
{
    AST_Value* v = AST_Value::narrow_from_decl(d);
    if (!v)
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxRuntimeNames::provided(v, resolver())) {
        at_indent() << "// " << CxxClientText(visitor()).full(v) << ": defined by the runtime\n\n";
        return 1;
    }
    output_value(v);
    output_init(v);
    return 1;
}

void VE_HH_MainStartPoint_Value::output_value(AST_Value* v)
{
    CxxClientText text(visitor());
    const std::string name = text.local(v);
    const std::string full = text.full(v);
    if (text.first_companions(v)) {
        at_indent() << "class " << name << ";\n";
        text.write_companions(v, name, v->defined_in());
        os() << "\n";
    }
    at_indent() << "class " << text.class_macro() << name << " :\n";
    indent().increment();
    if (v->inherits().empty())
        at_indent() << "public virtual CORBA::ValueBase";
    write_list(v->inherits(), ",\n",
               [&](std::ostream& out, AST_Value* base) { out << indent() << "public virtual " << text.full(base); });
    os() << "\n";
    indent().decrement();
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    output_members(v);

    indent().increment();
    UTL_Scope* saved = visitor()->scope();
    visitor()->set_scope(nullptr);
    DeclMap done;
    for (AST_Interface* supported : v->supports())
        output_supported(v, supported, done);
    visitor()->set_scope(saved);
    at_indent() << "static " << full << "* _downcast(CORBA::ValueBase* _yvp_value) { return dynamic_cast<" << full
                << "*>(_yvp_value); }\n";
    at_indent() << "static const YV_FWString _yv_fw_type_id;\n";
    indent().decrement();

    bool private_state = false;
    for (const auto& member : v->decls())
        if (AST_StateMember* m = AST_StateMember::narrow_from_decl(member.get()); m && !m->is_public()) {
            if (!private_state) {
                os() << "\n";
                at_indent() << "  protected:\n";
            }
            private_state = true;
            indent().increment();
            output_state_member(m);
            indent().decrement();
        }
    at_indent() << "};\n";
    text.write_typecode_declaration(v);
    os() << "\n";
}

void VE_HH_MainStartPoint_Value::output_members(AST_Value* v)
{
    indent().increment();
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
    indent().decrement();
}

void VE_HH_MainStartPoint_Value::output_state_member(AST_StateMember* m)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = m->field_type();
    const std::string name = text.local(m);
    at_indent() << "virtual void " << name << "(" << map.member_writer(t) << " _yvp_value) = 0;\n";
    at_indent() << "virtual " << map.member_reader(t) << " " << name << "() const = 0;\n";
    if (CxxTypeMapping::has_member_modifier(t))
        at_indent() << "virtual " << map.member_modifier(t) << " " << name << "() = 0;\n";
    os() << "\n";
}

void VE_HH_MainStartPoint_Value::output_init(AST_Value* v)
{
    std::vector<AST_Factory*> factories;
    for (const auto& member : v->decls())
        if (AST_Factory* f = AST_Factory::narrow_from_decl(member.get()))
            factories.push_back(f);
    if (factories.empty())
        return;
    CxxClientText text(visitor());
    const std::string init = text.local(v) + "_init";
    at_indent() << "class " << text.class_macro() << init << "\n";
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    indent().increment();
    at_indent() << "virtual ~" << init << "() {}\n\n";
    for (AST_Factory* f : factories) {
        CxxMemberDeclaration decl(text.full(v) + "*", text.local(f));
        for (const auto& member : f->decls())
            if (AST_Argument* arg = AST_Argument::narrow_from_decl(member.get()))
                decl.add_parameter(text.mapping().param(arg->field_type(), CxxTypeMapping::M_in), text.local(arg));
        decl.write(os(), indent(), PureVirtualHHVisit::instance(), nullptr);
        os() << "\n\n";
    }
    indent().decrement();
    at_indent() << "};\n\n";
}

void VE_HH_MainStartPoint_Value::output_supported(AST_Value*, AST_Interface* supported, DeclMap& done)
{
    if (!supported)
        return;
    std::vector<AST_Interface*> interfaces;
    long keys = 0;
    VE_Client_Interface graph(visitor());
    graph.find_all_interfaces(supported, interfaces, keys);

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
                os() << "\n\n";
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d)) {
                attr_decl.output_get(a);
                os() << "\n\n";
                if (!a->readonly()) {
                    attr_decl.output_set(a); // ends its own line
                    os() << "\n";
                }
            }
        }
    }
}
