// What the value-type server and client of both ORBs share: the concrete
// Account that can read its private balance, the factories they register,
// the sample graphs and their checks. Written to the standard C++ mapping
// only (ObvOrb.h says which ORB's generated code it is built with).
#ifndef INTEROP_OBV_SAMPLES_H
#define INTEROP_OBV_SAMPLES_H

#include "ObvOrb.h"

#include <string>

namespace obv {

// An Account whose private balance this program reads and sets.
class AccountView : public virtual OBV_Obv::Account {
public:
    CORBA::LongLong get_balance() const { return balance(); }
    void set_balance(CORBA::LongLong v) { balance(v); }
};

// A NamedValue whose name is its title.
class NamedValueImpl : public virtual OBV_Obv::NamedValue, public virtual CORBA::DefaultValueRefCountBase {
public:
    char* name() override { return CORBA::string_dup(title()); }
};

// Registers the factories of Account (AccountView), Node, Base, Derived,
// Extended and NamedValue (NamedValueImpl) with `orb`.
void register_factories(CORBA::ORB_ptr orb);

// A node labelled 1 whose two children are one node labelled 2.
Obv::Node* make_pair_graph();
// What differs from make_pair_graph's shape ("" when nothing).
std::string pair_problems(const Obv::Node* n);
// A node labelled `label` whose left child is itself.
Obv::Node* make_cycle(CORBA::Long label);
// Drops every child reference in the graph of `n`, so that a graph with
// cycles can be freed.
void cut(Obv::Node* n);

} // namespace obv

#endif
