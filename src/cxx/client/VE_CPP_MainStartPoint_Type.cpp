#include "VE_CPP_MainStartPoint_Type.h"

#include "AST_Enum.h"
#include "AST_Exception.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "CxxAnyOperatorWriter.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"
#include "CxxMarshalWriter.h"
#include "CxxRuntimeNames.h"
#include "CxxTypeCodeWriter.h"
#include "UTL_Scope.h"
#include "VIS_CPP_MainStartPoint.h"

long VE_CPP_MainStartPoint_Type::visit(AST_Decl* d)
{
    if (!AST_Type::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxRuntimeNames::provided(d, resolver()))
        return 1;
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    output_typecode(p, d);
    p.print("\n");
    const CxxMarshalWriter marshal(text.mapping(), resolver());
    switch (d->node_type()) {
    case AST_Decl::NT_struct: marshal.write_structure(p, AST_Structure::narrow_from_decl(d)); break;
    case AST_Decl::NT_union: marshal.write_union(p, AST_Union::narrow_from_decl(d)); break;
    case AST_Decl::NT_enum: marshal.write_enum(p, AST_Enum::narrow_from_decl(d)); break;
    case AST_Decl::NT_except: marshal.write_exception(p, AST_Exception::narrow_from_decl(d)); break;
    default: break;
    }
    output_any_operators(p, d);
    output_nested(d);
    return 1;
}

void VE_CPP_MainStartPoint_Type::output_typecode(CxxPrinter& p, AST_Decl* d)
{
    VIS_CPP_MainStartPoint* v = dynamic_cast<VIS_CPP_MainStartPoint*>(visitor());
    if (!v)
        throw Visitor_i::NarrowFailure(visitor(), d);
    v->typecodes().write_definition(p, d);
}

void VE_CPP_MainStartPoint_Type::output_type_id(CxxPrinter& p, AST_Decl* d)
{
    p.print("const YV_FWString $name$::_yv_fw_type_id($id$);\n",
            {{"name", CxxClientText(visitor()).full(d)}, {"id", CxxLiteral::string_literal(d->repoID(), false)}});
}

void VE_CPP_MainStartPoint_Type::output_any_operators(CxxPrinter& p, AST_Decl* d)
{
    if (!CxxAnyOperatorWriter::has_operators(d))
        return;
    CxxClientText text(visitor());
    const CxxAnyOperatorWriter any(text.mapping(), resolver());
    any.write_definitions(p, d);
    any.write_instantiations(p, d, true);
    p.print("\n");
}

void VE_CPP_MainStartPoint_Type::output_nested(AST_Decl* d)
{
    if (UTL_Scope* nested = DeclAsScope(d))
        if (VIS_CPP_MainStartPoint* v = dynamic_cast<VIS_CPP_MainStartPoint*>(visitor()))
            v->walk(nested);
}
