// Prints the octets omniORB 4.2 writes for the values of
// ValueCdr_test.cpp (ReadsWhatOmniOrbWrites), in both byte orders, as the
// hex strings that test holds; with the arguments "read <be|le> <hex>" it
// reads a Test::Node, a Test::Derived (formal type Base, no factory for
// Derived: truncated) and a Test::StringBox from the octets instead and
// prints what it found ("read-whole": with Derived's factory; "read-counted":
// a Test::Counted, formal type Base), so that octets we write can be shown
// to omniORB.
#include "values.hh"

#include <cstdio>
#include <string>
#include <vector>

namespace {

void dump(const char* name, cdrMemoryStream& s)
{
    std::printf("%s:", name);
    const unsigned char* p = static_cast<const unsigned char*>(s.bufPtr());
    for (size_t i = 0; i < s.bufSize(); ++i)
        std::printf(" %02x", p[i]);
    std::printf("\n");
}

void write_all(bool little)
{
    {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::Node_var root = new OBV_Test::Node(1, 0, 0);
        Test::Node_var child = new OBV_Test::Node(2, 0, 0);
        root->left(child);
        root->right(child);
        Test::Node_var cycle = new OBV_Test::Node(3, 0, 0);
        cycle->left(cycle);
        Test::Node::_NP_marshal(root, s);
        Test::Node::_NP_marshal(root, s);
        Test::Node::_NP_marshal(cycle, s);
        Test::Node::_NP_marshal(0, s);
        dump(little ? "nodes.le" : "nodes.be", s);
        cycle->left(0);
    }
    {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::Derived_var d = new OBV_Test::Derived;
        d->name("cut");
        d->extra(new OBV_Test::Node(3, 0, 0));
        d->weight(1.5);
        Test::Node_var four = new OBV_Test::Node(4, 0, 0);
        d->extra()->left(four);
        d->extra()->right(four);
        Test::Derived::_NP_marshal(d, s);
        dump(little ? "derived.le" : "derived.be", s);
    }
    // Formal type Base: with type information and in chunks.
    for (int extra = 0; extra < 2; ++extra) {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::Derived_var d = new OBV_Test::Derived;
        d->name("cut");
        d->weight(1.5);
        if (extra) {
            d->extra(new OBV_Test::Node(3, 0, 0));
            Test::Node_var four = new OBV_Test::Node(4, 0, 0);
            d->extra()->left(four);
            d->extra()->right(four);
        }
        Test::Base::_NP_marshal(d, s);
        dump(extra ? (little ? "chunked.le" : "chunked.be") : (little ? "chunked-null.le" : "chunked-null.be"), s);
    }
    // A node written, then an any holding it: the any's value refers to
    // nothing outside it.
    {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::Node_var root = new OBV_Test::Node(1, 0, 0);
        Test::Node_var child = new OBV_Test::Node(2, 0, 0);
        root->left(child);
        root->right(child);
        Test::Node::_NP_marshal(root, s);
        CORBA::Any a;
        a <<= root.in();
        a >>= s;
        dump(little ? "any.le" : "any.be", s);
    }
    // A level of inheritance that starts with a primitive member: omniORB
    // starts a chunk for it.
    {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::Counted_var c = new OBV_Test::Counted;
        c->name("ab");
        c->count(7);
        c->ratio(0.5);
        Test::Base::_NP_marshal(c, s);
        dump(little ? "counted.le" : "counted.be", s);
    }
    {
        cdrMemoryStream s(0, true);
        s.setByteSwapFlag(little);
        Test::StringBox_var b = new Test::StringBox("boxed");
        Test::StringBox::_NP_marshal(b, s);
        Test::StringBox::_NP_marshal(b, s);
        dump(little ? "box.le" : "box.be", s);
    }
}

void read_all(bool little, const char* hex)
{
    std::vector<unsigned char> octets;
    for (const char* p = hex; *p != 0; ++p)
        if (*p != ' ' && p[1] != 0) {
            octets.push_back(static_cast<unsigned char>(std::stoul(std::string(p, 2), nullptr, 16)));
            ++p;
        }
    cdrMemoryStream s(octets.data(), octets.size());
    s.setByteSwapFlag(little);
    try {
        Test::Node_var n = Test::Node::_NP_unmarshal(s);
        std::printf("node %d left %d right %d shared %d\n", n ? n->label() : -1,
                    n && n->left() ? n->left()->label() : -1, n && n->right() ? n->right()->label() : -1,
                    n && n->left() == n->right());
        Test::Base_var b = Test::Base::_NP_unmarshal(s);
        Test::Derived* d = Test::Derived::_downcast(b);
        std::printf("base %s derived %d weight %g\n", b ? b->name() : "-", d != 0, d ? d->weight() : 0.0);
        Test::StringBox_var box = Test::StringBox::_NP_unmarshal(s);
        std::printf("box %s left %lu\n", box ? box->_value() : "-", (unsigned long)s.checkInputOverrun(1, 1));
    } catch (CORBA::SystemException& e) {
        std::printf("%s minor %lu\n", e._name(), (unsigned long)e.minor());
    }
}

// A Test::Counted in chunks (formal type Base), as we write it.
void read_counted(bool little, const char* hex)
{
    std::vector<unsigned char> octets;
    for (const char* p = hex; *p != 0; ++p)
        if (*p != ' ' && p[1] != 0) {
            octets.push_back(static_cast<unsigned char>(std::stoul(std::string(p, 2), nullptr, 16)));
            ++p;
        }
    cdrMemoryStream s(octets.data(), octets.size());
    s.setByteSwapFlag(little);
    try {
        Test::Base_var b = Test::Base::_NP_unmarshal(s);
        Test::Counted* c = Test::Counted::_downcast(b);
        std::printf("base %s count %d ratio %g\n", b ? b->name() : "-", c ? (int)c->count() : -1, c ? c->ratio() : 0.0);
    } catch (CORBA::SystemException& e) {
        std::printf("%s minor %lu\n", e._name(), (unsigned long)e.minor());
    }
}

} // namespace

int main(int argc, char** argv)
{
    CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
    const std::string mode = argc == 4 ? argv[1] : "";
    if (mode == "read-counted") {
        CORBA::ValueFactoryBase_var base = new Test::Base_init;
        CORBA::ValueFactoryBase_var counted = new Test::Counted_init;
        orb->register_value_factory("IDL:Test/Base:1.0", base);
        orb->register_value_factory("IDL:Test/Counted:1.0", counted);
        read_counted(std::string(argv[2]) == "le", argv[3]);
    } else if (mode == "read" || mode == "read-whole") {
        CORBA::ValueFactoryBase_var node = new Test::Node_init;
        CORBA::ValueFactoryBase_var base = new Test::Base_init;
        CORBA::ValueFactoryBase_var derived = new Test::Derived_init;
        orb->register_value_factory("IDL:Test/Node:1.0", node);
        orb->register_value_factory("IDL:Test/Base:1.0", base);
        if (mode == "read-whole")
            orb->register_value_factory("IDL:Test/Derived:1.0", derived);
        read_all(std::string(argv[2]) == "le", argv[3]);
    } else {
        write_all(false);
        write_all(true);
    }
    orb->destroy();
    return 0;
}
