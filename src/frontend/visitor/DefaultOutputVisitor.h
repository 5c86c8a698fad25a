// A visitor that writes the plain local name (after clash resolution) of
// whatever node accepts it.
#ifndef DEFAULTOUTPUTVISITOR_H
#define DEFAULTOUTPUTVISITOR_H

#include "Visitor_i.h"

#include <iosfwd>

class NameResolver;

class DefaultOutputVisitor : public virtual Visitor_i {
public:
    DefaultOutputVisitor(std::ostream& os, NameResolver& resolver) : Visitor_i(nullptr, nullptr), m_os(os), m_resolver(resolver) {}

    const char* name() override { return "DefaultOutputVisitor"; }

#define YV_VISITOR_NODE(Name, Class, key, IsType, Accepts) long visit_AST_##Name(Class* n) override;
#include "Visitor_Nodes.def"

protected:
    std::ostream& stream() const { return m_os; }
    NameResolver& resolver() const { return m_resolver; }
    // Writes the resolver's local name of `d`; answers 1.
    long write_name(AST_Decl* d);

private:
    std::ostream& m_os;
    NameResolver& m_resolver;
};

#endif
