#include "VE_HH_MainStartPoint_UnionFwd.h"

#include "AST_UnionFwd.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_UnionFwd::visit(AST_Decl* d)
{
    AST_UnionFwd* f = AST_UnionFwd::narrow_from_decl(d);
    if (!f)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText(visitor()).write_forward("class", f->full_definition(), f);
    return 1;
}
