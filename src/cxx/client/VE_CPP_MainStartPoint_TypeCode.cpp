#include "VE_CPP_MainStartPoint_TypeCode.h"

#include "AST_Type.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"
#include "UTL_Scope.h"
#include "VIS_CPP_MainStartPoint.h"

#include <ostream>

long VE_CPP_MainStartPoint_TypeCode::visit(AST_Decl* d)
{
    if (!AST_Type::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    if (CxxTypeMapping::kind_of(AST_Type::narrow_from_decl(d)) != CxxTypeMapping::K_native)
        output_typecode(d);
    if (UTL_Scope* nested = DeclAsScope(d))
        if (VIS_CPP_MainStartPoint* v = dynamic_cast<VIS_CPP_MainStartPoint*>(visitor()))
            v->walk(nested);
    return 1;
}

void VE_CPP_MainStartPoint_TypeCode::output_typecode(AST_Decl* d)
{
    CxxClientText text(visitor());
    at_indent() << "const CORBA::TypeCode_ptr " << text.mapping().scope_prefix(d) << "_tc_" << text.local(d)
                << " = new CORBA::TypeCode(" << CxxTypeMapping::tc_kind(d) << ", 0, "
                << CxxLiteral::string_literal(d->repoID(), false) << ", "
                << CxxLiteral::string_literal(d->local_name()->str(), false) << ");\n";
}

void VE_CPP_MainStartPoint_TypeCode::output_type_id(AST_Decl* d)
{
    CxxClientText text(visitor());
    at_indent() << "const YV_FWString " << text.full(d) << "::_yv_fw_type_id("
                << CxxLiteral::string_literal(d->repoID(), false) << ");\n";
}
