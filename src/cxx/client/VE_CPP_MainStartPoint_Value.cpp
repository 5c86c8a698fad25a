#include "VE_CPP_MainStartPoint_Value.h"

#include "AST_Value.h"
#include "AST_ValueBox.h"
#include "CxxClientText.h"
#include "CxxMarshalWriter.h"
#include "CxxRuntimeNames.h"
#include "CxxValueWriter.h"

long VE_CPP_MainStartPoint_Value::visit(AST_Decl* d)
{
    if (!AST_Value::narrow_from_decl(d) && !AST_ValueBox::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxRuntimeNames::provided(d, resolver()))
        return 1;
    CxxPrinter p = CxxClientText(visitor()).printer();
    output_type_id(p, d);
    output_typecode(p, d);
    p.print("\n");
    output_any_operators(p, d);
    CxxClientText text(visitor());
    const CxxMarshalWriter marshal(text.mapping(), resolver());
    const CxxValueWriter values(text.mapping(), resolver(), marshal);
    if (AST_Value* v = AST_Value::narrow_from_decl(d))
        values.write_definitions(p, v);
    else
        values.write_box_definitions(p, AST_ValueBox::narrow_from_decl(d));
    if (AST_Value::narrow_from_decl(d))
        output_nested(d);
    return 1;
}
