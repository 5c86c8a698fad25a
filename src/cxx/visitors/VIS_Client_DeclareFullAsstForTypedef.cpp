#include "VIS_Client_DeclareFullAsstForTypedef.h"

#include "AST_Typedef.h"
#include "NameResolver.h"

#include <ostream>

VIS_Client_DeclareFullAsstForTypedef::VIS_Client_DeclareFullAsstForTypedef(std::ostream& os, int level,
                                                                           UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
}

long VIS_Client_DeclareFullAsstForTypedef::visit_type(AST_Type* t)
{
    if (t->node_type() != AST_Decl::NT_typedef)
        return 1;
    const std::string cls = mapping().streamable(t);
    if (!cls.empty())
        printer().print("typedef $class$ $name$_Streamable;\n", {{"class", cls}, {"name", resolver().local_name(t)}});
    return 1;
}
