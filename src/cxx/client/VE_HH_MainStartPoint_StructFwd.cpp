#include "VE_HH_MainStartPoint_StructFwd.h"

#include "AST_StructFwd.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_StructFwd::visit(AST_Decl* d)
{
    AST_StructFwd* f = AST_StructFwd::narrow_from_decl(d);
    if (!f)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText(visitor()).write_forward("struct", f->full_definition(), f);
    return 1;
}
