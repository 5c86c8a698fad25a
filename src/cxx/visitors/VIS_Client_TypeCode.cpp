#include "VIS_Client_TypeCode.h"

#include "AST_String.h"

#include <ostream>

VIS_Client_TypeCode::VIS_Client_TypeCode(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
}

long VIS_Client_TypeCode::visit_type(AST_Type* t)
{
    AST_String* s = AST_String::narrow_from_decl(t);
    if (!s || s->max_size() == 0)
        return 1;
    const std::string tc = CxxTypeMapping::anonymous_string_tc_name(s);
    const std::string guard = "_YV_TC_DEFINED" + tc.substr(std::string("_yv_tc").size());
    // The guard lines start in the first column.
    CxxPrinter p = printer();
    p.raw("#ifndef $guard$\n#define $guard$\n", {{"guard", guard}});
    p.print("static CORBA::TypeCode $tc$($kind$, $max$);\n",
            {{"tc", tc},
             {"kind", s->is_wide() ? "CORBA::tk_wstring" : "CORBA::tk_string"},
             {"max", CxxPrinter::Num(static_cast<long long>(s->max_size()))}});
    p.raw("#endif\n");
    return 1;
}
