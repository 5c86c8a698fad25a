#include "VE_HH_MainStartPoint_Native.h"

#include "AST_Native.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_Native::visit(AST_Decl* d)
{
    AST_Native* n = AST_Native::narrow_from_decl(d);
    if (!n)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    text.printer().print("typedef void* $name$;\n", {{"name", text.local(n)}});
    text.write_typecode_declaration(n);
    text.printer().print("\n");
    return 1;
}
