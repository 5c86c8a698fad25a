#include "VE_CPP_MainStartPoint_Value.h"

#include "AST_Value.h"
#include "AST_ValueBox.h"
#include "CxxRuntimeNames.h"
#include "VIS_CPP_MainStartPoint.h"

#include <ostream>

long VE_CPP_MainStartPoint_Value::visit(AST_Decl* d)
{
    AST_Value* v = AST_Value::narrow_from_decl(d);
    if (!v && !AST_ValueBox::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxRuntimeNames::provided(d, resolver()))
        return 1;
    output_type_id(d);
    output_typecode(d);
    os() << "\n";
    if (VIS_CPP_MainStartPoint* cpp = dynamic_cast<VIS_CPP_MainStartPoint*>(visitor()); cpp && v)
        cpp->walk(v);
    return 1;
}
