#include "VE_HH_MainStartPoint_ValueBox.h"

#include "AST_ValueBox.h"
#include "CxxClientText.h"
#include "CxxMarshalWriter.h"
#include "CxxValueWriter.h"


long VE_HH_MainStartPoint_ValueBox::visit(AST_Decl* d)
{
    AST_ValueBox* b = AST_ValueBox::narrow_from_decl(d);
    if (!b)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = b->boxed_type();
    const std::string name = text.local(b);
    const std::string full = text.full(b);
    const std::string in = map.member_writer(t) + " _yvp_value";
    const std::string assign = map.assign_member(t, "_yv_value", "_yvp_value");

    const std::string macro = text.class_macro();
    CxxPrinter p = text.printer();
    const CxxPrinter::Vars vars{{"name", name}, {"full", full}, {"in", in}, {"assign", assign}, {"macro", macro}};
    if (text.first_companions(b)) {
        p.print("class $name$;\n", vars);
        text.write_companions(b, name, b->defined_in());
        p.print("\n");
    }
    {
        auto cls = p.block("class $macro$$name$ :\n    public virtual CORBA::DefaultValueRefCountBase\n{\n  public:\n",
                           "};\n", vars);
        p.print("$name$() {}\n", vars);
        p.print("$name$($in$) { $assign$; }\n", vars);
        p.print("$full$& operator=($in$) { $assign$; return *this; }\n\n", vars);
        p.print("$reader$ _value() const { return _yv_value; }\n", {{"reader", map.member_reader(t)}});
        if (CxxTypeMapping::has_member_modifier(t))
            p.print("$modifier$ _value() { return _yv_value; }\n", {{"modifier", map.member_modifier(t)}});
        p.print("void _value($in$) { $assign$; }\n", vars);
        const CxxMarshalWriter marshal(map, resolver());
        const CxxValueWriter values(map, resolver(), marshal);
        values.write_box_accessors(p, b);
        p.print("CORBA::ValueBase* _copy_value() override { return new $full$(*this); }\n", vars);
        p.print("static $full$* _downcast(CORBA::ValueBase* _yvp_base) { return dynamic_cast<$full$*>(_yvp_base); }\n",
                vars);
        p.print("static const YV_FWString _yv_fw_type_id;\n");
        values.write_box_members(p, b);
        p.print("\n");
        p.outdent();
        p.print("  protected:\n");
        p.indent();
        p.print("~$name$() override {}\n\n", vars);
        p.outdent();
        p.print("  private:\n");
        p.indent();
        p.print("$decl${};\n", {{"decl", map.member_declaration(t, "_yv_value")}});
    }
    text.write_typecode_declaration(b);
    p.print("\n");
    return 1;
}
