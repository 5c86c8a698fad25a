#include "VIS_Client_DeclDispStreamable.h"

#include <ios>
#include <ostream>

VIS_Client_DeclDispStreamable::VIS_Client_DeclDispStreamable(std::ostream& os, int level, UTL_Scope* scope,
                                                             CodeGenerator* gen, const char* strm_name,
                                                             const char* /*var_name*/, const char* addr_expr,
                                                             const char* orb_name, long usage, AST_Decl* /*decl*/)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen), m_strm(strm_name ? strm_name : ""),
      m_addr(addr_expr ? addr_expr : ""), m_orb(orb_name ? orb_name : ""), m_usage(usage)
{
    // The factory's signature gives the value's variable and a declaration
    // too; the streamable is bound through the address expression alone.
}

long VIS_Client_DeclDispStreamable::visit_type(AST_Type* t)
{
    const std::string cls = mapping().streamable(t);
    if (cls.empty())
        return 1;
    printer().print("$class$ $strm$($addr$, $orb$, 0x$usage$);\n", {{"class", cls},
                                                                    {"strm", m_strm},
                                                                    {"addr", m_addr},
                                                                    {"orb", m_orb.empty() ? std::string_view("0") : m_orb},
                                                                    {"usage", CxxPrinter::Num(m_usage, 16)}});
    return 1;
}
