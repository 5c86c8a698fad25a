// The nodes' accept operations: each node class calls the visit operation
// of its kind. They stand here, with the visitor, so that the tree's
// headers need only know that a visitor exists.
#include "AST_Nodes.h"
#include "Visitor.h"

#define YV_ACCEPT_1(Name, Class) \
    long Class::accept(Visitor* v) { return v->visit_AST_##Name(this); }
#define YV_ACCEPT_0(Name, Class)
#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) YV_ACCEPT_##Accepts(Name, Class)
#include "Visitor_Nodes.def"

// An abstract interface has a visit operation of its own.
long AST_Interface::accept(Visitor* v)
{
    return m_abstract ? v->visit_AST_AbstractInterface(this) : v->visit_AST_Interface(this);
}
