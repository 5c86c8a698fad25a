#include "DefaultOutputVisitor.h"

#include "AST_Nodes.h"
#include "AST_Decl.h"
#include "NameResolver.h"

#include <ostream>

long DefaultOutputVisitor::write_name(AST_Decl* d)
{
    m_os << m_resolver.local_name(d);
    return 1;
}

#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) \
    long DefaultOutputVisitor::visit_AST_##Name(Class* n) { return write_name(n); }
#include "Visitor_Nodes.def"
