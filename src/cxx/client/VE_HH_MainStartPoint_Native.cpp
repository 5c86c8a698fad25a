#include "VE_HH_MainStartPoint_Native.h"

#include "AST_Native.h"
#include "CxxClientText.h"

#include <ostream>

long VE_HH_MainStartPoint_Native::visit(AST_Decl* d)
{
    AST_Native* n = AST_Native::narrow_from_decl(d);
    if (!n)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    at_indent() << "typedef void* " << text.local(n) << ";\n\n";
    return 1;
}
