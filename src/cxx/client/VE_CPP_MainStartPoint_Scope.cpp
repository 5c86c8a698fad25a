#include "VE_CPP_MainStartPoint_Scope.h"

#include "AST_Module.h"
#include "VIS_CPP_MainStartPoint.h"

long VE_CPP_MainStartPoint_Scope::visit(AST_Decl* d)
{
    AST_Module* m = AST_Module::narrow_from_decl(d); // the root is a module too
    VIS_CPP_MainStartPoint* v = dynamic_cast<VIS_CPP_MainStartPoint*>(visitor());
    if (!m || !v)
        throw Visitor_i::NarrowFailure(visitor(), d);
    v->walk(m);
    return 1;
}
