#include "VE_HH_MainStartPoint_ValueFwd.h"

#include "AST_ValueFwd.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_ValueFwd::visit(AST_Decl* d)
{
    AST_ValueFwd* f = AST_ValueFwd::narrow_from_decl(d);
    if (!f)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText(visitor()).write_forward("class", f->full_definition(), f);
    return 1;
}
