#include "VE_HH_MainStartPoint_Structure.h"

#include "AST_Structure.h"
#include "CxxClientText.h"
#include "VIS_HH_MainStartPoint.h"

long VE_HH_MainStartPoint_Structure::visit(AST_Decl* d)
{
    AST_Structure* s = AST_Structure::narrow_from_decl(d);
    if (!s)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const std::string name = text.local(s);
    {
        CxxPrinter p = text.printer();
        auto cls = p.block("struct $name$\n{\n", "};\n", {{"name", name}});
        output_nested(s);
        output_members(s);
    }
    if (text.first_companions(s))
        text.write_companions(s, name, s->defined_in());
    text.write_typecode_declaration(s);
    text.printer().print("\n");
    return 1;
}

void VE_HH_MainStartPoint_Structure::output_nested(AST_Structure* s)
{
    VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent(), s, generator());
}

void VE_HH_MainStartPoint_Structure::output_members(AST_Structure* s)
{
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    for (AST_Field* f : s->fields())
        p.print("$decl$;\n", {{"decl", text.mapping().member_declaration(f->field_type(), text.local(f))}});
}
