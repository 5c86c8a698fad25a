#include "VE_HH_MainStartPoint_Typedef.h"

#include "AST_Typedef.h"
#include "CxxClientText.h"

#include <ostream>

long VE_HH_MainStartPoint_Typedef::visit(AST_Decl* d)
{
    AST_Typedef* td = AST_Typedef::narrow_from_decl(d);
    if (!td)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const std::string name = text.local(td);
    // An array is declared around its new name; every other type is named.
    at_indent() << "typedef " << text.mapping().member_declaration_of_alias(td->base_type(), name) << ";\n";
    text.write_companions(td, name, td->defined_in());
    if (CxxTypeMapping::kind_of(td) != CxxTypeMapping::K_native)
        text.write_typecode_declaration(td);
    os() << "\n";
    return 1;
}
