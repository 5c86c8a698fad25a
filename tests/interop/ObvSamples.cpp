#include "ObvSamples.h"

#include <set>
#include <vector>

namespace obv {

namespace {

template <class T>
class Factory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new T; }
};

void register_factory(CORBA::ORB_ptr orb, const char* id, CORBA::ValueFactoryBase* factory)
{
    CORBA::ValueFactoryBase_var previous = orb->register_value_factory(id, factory);
    factory->_remove_ref();
}

} // namespace

void register_factories(CORBA::ORB_ptr orb)
{
    register_factory(orb, "IDL:Obv/Account:1.0", new Factory<AccountView>);
    register_factory(orb, "IDL:Obv/Node:1.0", new Factory<OBV_Obv::Node>);
    register_factory(orb, "IDL:Obv/Base:1.0", new Factory<OBV_Obv::Base>);
    register_factory(orb, "IDL:Obv/Derived:1.0", new Factory<OBV_Obv::Derived>);
    register_factory(orb, "IDL:Obv/Extended:1.0", new Factory<OBV_Obv::Extended>);
    register_factory(orb, "IDL:Obv/NamedValue:1.0", new Factory<NamedValueImpl>);
}

Obv::Node* make_pair_graph()
{
    Obv::Node_var root = new OBV_Obv::Node;
    Obv::Node_var child = new OBV_Obv::Node;
    root->label(1);
    child->label(2);
    root->left(child.in());
    root->right(child.in());
    return root._retn();
}

std::string pair_problems(const Obv::Node* n)
{
    if (n == nullptr)
        return "null";
    std::string problems;
    if (n->label() != 1)
        problems += " root label " + std::to_string(n->label());
    if (n->left() == nullptr || n->right() == nullptr)
        return problems + " a child is null";
    if (n->left() != n->right())
        problems += " the children are two values";
    if (n->left()->label() != 2)
        problems += " child label " + std::to_string(n->left()->label());
    return problems;
}

Obv::Node* make_cycle(CORBA::Long label)
{
    Obv::Node_var n = new OBV_Obv::Node;
    n->label(label);
    n->left(n.in());
    return n._retn();
}

void cut(Obv::Node* n)
{
    std::set<Obv::Node*> seen;
    std::vector<Obv::Node_var> pending;
    if (n != nullptr) {
        CORBA::add_ref(n);
        pending.push_back(n);
    }
    while (!pending.empty()) {
        Obv::Node_var next = pending.back();
        pending.pop_back();
        if (!seen.insert(next.in()).second)
            continue;
        for (Obv::Node* child : {next->left(), next->right()})
            if (child != nullptr) {
                CORBA::add_ref(child);
                pending.push_back(child);
            }
        next->left(nullptr);
        next->right(nullptr);
    }
}

} // namespace obv
