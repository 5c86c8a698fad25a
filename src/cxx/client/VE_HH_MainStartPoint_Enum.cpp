#include "VE_HH_MainStartPoint_Enum.h"

#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_Enum::visit(AST_Decl* d)
{
    AST_Enum* e = AST_Enum::narrow_from_decl(d);
    if (!e)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const std::string name = text.local(e);
    {
        CxxPrinter p = text.printer();
        auto body = p.block("enum $name$\n{\n", "};\n", {{"name", name}});
        p.list(e->enumerators(), ",\n", [&](AST_EnumVal* v) { p.print(text.local(v)); });
        p.print("\n");
    }
    text.write_companions(e, name, e->defined_in());
    text.write_typecode_declaration(e);
    text.printer().print("\n");
    return 1;
}
