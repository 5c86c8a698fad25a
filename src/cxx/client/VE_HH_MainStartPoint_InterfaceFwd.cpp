#include "VE_HH_MainStartPoint_InterfaceFwd.h"

#include "AST_InterfaceFwd.h"
#include "CxxClientText.h"

long VE_HH_MainStartPoint_InterfaceFwd::visit(AST_Decl* d)
{
    AST_InterfaceFwd* f = AST_InterfaceFwd::narrow_from_decl(d);
    if (!f)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText(visitor()).write_forward("class", f->full_definition(), f);
    return 1;
}
