#include "VE_HH_MainStartPoint_Enum.h"

#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "CxxClientText.h"

#include <ostream>

long VE_HH_MainStartPoint_Enum::visit(AST_Decl* d)
{
    AST_Enum* e = AST_Enum::narrow_from_decl(d);
    if (!e)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const std::string name = text.local(e);
    at_indent() << "enum " << name << "\n";
    at_indent() << "{\n";
    indent().increment();
    const std::vector<AST_EnumVal*> values = e->enumerators();
    write_list(values, ",\n", [&](std::ostream& os, AST_EnumVal* v) { os << indent() << text.local(v); });
    os() << "\n";
    indent().decrement();
    at_indent() << "};\n";
    text.write_companions(e, name, e->defined_in());
    text.write_typecode_declaration(e);
    os() << "\n";
    return 1;
}
