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
    stream() << "#ifndef " << guard << "\n"
             << "#define " << guard << "\n";
    at_indent() << "static CORBA::TypeCode " << tc << "(" << (s->is_wide() ? "CORBA::tk_wstring" : "CORBA::tk_string")
                << ", " << s->max_size() << ");\n";
    stream() << "#endif\n";
    return 1;
}
