#include "VIS_CxxTypeVisitor.h"

#include "GEN_CPlusPlus.h"

#include "AST_Nodes.h"

#define YV_TYPE_VISIT_1(Name, Class) \
    long VIS_CxxTypeVisitor::visit_AST_##Name(Class* n) { return visit_type(n); }
#define YV_TYPE_VISIT_0(Name, Class)
#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) YV_TYPE_VISIT_##IsType(Name, Class)
#include "Visitor_Nodes.def"


CxxTypeMapping VIS_CxxTypeVisitor::mapping() const
{
    CxxTypeMapping map(resolver(), scope());
    map.qualify_against(capture_guard_of(generator()));
    return map;
}
