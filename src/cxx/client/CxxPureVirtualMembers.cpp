#include "CxxPureVirtualMembers.h"

#include "AST_Attribute.h"
#include "AST_Operation.h"
#include "PureVirtualHHVisit.h"

#include <ostream>

CxxPureVirtualMembers::CxxPureVirtualMembers(VIS_Cxx* v)
    : m_op_decl(v, PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s"),
      m_attr_decl(v, PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "_yvvar_%s"),
      m_visitor(v)
{
}

bool CxxPureVirtualMembers::write(AST_Decl* d)
{
    std::ostream& os = m_visitor->stream();
    if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
        m_op_decl.visit(op);
        os << "\n\n";
        return true;
    }
    if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d)) {
        m_attr_decl.output_get(a);
        os << "\n\n";
        if (!a->readonly()) {
            m_attr_decl.output_set(a); // ends its own line
            os << "\n";
        }
        return true;
    }
    return false;
}
