#include "VE_HH_MainStartPoint_Exception.h"

#include "AST_Exception.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"
#include "CxxNaming.h"
#include "VIS_HH_MainStartPoint.h"

long VE_HH_MainStartPoint_Exception::visit(AST_Decl* d)
{
    AST_Exception* e = AST_Exception::narrow_from_decl(d);
    if (!e)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    {
        auto cls = p.block("class $macro$$name$ :\n    public CORBA::UserException\n{\n  public:\n", "};\n",
                           {{"macro", text.class_macro()}, {"name", text.local(e)}});
        VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent(), e, generator());
        output_constructors(p, e);
        output_standard_members(p, e);
        for (AST_Field* f : e->fields())
            p.print("$decl$;\n", {{"decl", text.mapping().member_declaration(f->field_type(), text.local(f))}});
    }
    text.write_typecode_declaration(e);
    p.print("\n");
    return 1;
}

void VE_HH_MainStartPoint_Exception::output_constructors(CxxPrinter& p, AST_Exception* e)
{
    CxxClientText text(visitor());
    const std::string name = text.local(e);
    p.print("$name$() {}\n\n", {{"name", name}});
    const std::vector<AST_Field*> fields = e->fields();
    if (fields.empty())
        return;
    {
        auto params = p.block("$name$(\n", ")\n", {{"name", name}});
        p.list(fields, ",\n", [&](AST_Field* f) {
            p.print("$type$ $param$", {{"type", text.mapping().member_writer(f->field_type())},
                                       {"param", yvparam(text.local(f).c_str())}});
        });
        p.print("\n");
    }
    auto body = p.block("{\n", "}\n\n");
    for (AST_Field* f : fields) {
        const std::string member = text.local(f);
        p.print("$assign$;\n", {{"assign", text.mapping().assign_member(f->field_type(), member, yvparam(member.c_str()))}});
    }
}

void VE_HH_MainStartPoint_Exception::output_standard_members(CxxPrinter& p, AST_Exception* e)
{
    CxxClientText text(visitor());
    const std::string full = text.full(e);
    const std::string name = CxxLiteral::string_literal(e->local_name()->str(), false);
    const std::string id = CxxLiteral::string_literal(e->repoID(), false);
    const CxxPrinter::Vars vars{{"full", full}, {"name", name}, {"id", id}};
    p.print("const char* _name() const override { return $name$; }\n", vars);
    p.print("const char* _rep_id() const override { return $id$; }\n", vars);
    p.print("void _raise() const override { throw *this; }\n", vars);
    p.print("static $full$* _downcast(CORBA::Exception* e) { return dynamic_cast<$full$*>(e); }\n", vars);
    p.print("static const $full$* _downcast(const CORBA::Exception* e) { return dynamic_cast<const $full$*>(e); }\n",
            vars);
    p.print("void _yv_write_members(YV_CDR::OutputStream& _yvp_out) const override;\n");
    p.print("void _yv_read_members(YV_CDR::InputStream& _yvp_in);\n\n");
}
