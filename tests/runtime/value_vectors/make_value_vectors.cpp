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

// Writes one case in the byte order asked for and prints its octets as
// "<name>.<be|le>: xx xx ...".
template <class Fill> void write_case(const char* name, bool little, Fill fill)
{
    cdrMemoryStream s(0, true);
    s.setByteSwapFlag(little);
    fill(s);
    std::printf("%s.%s:", name, little ? "le" : "be");
    const unsigned char* p = static_cast<const unsigned char*>(s.bufPtr());
    for (size_t i = 0; i < s.bufSize(); ++i)
        std::printf(" %02x", p[i]);
    std::printf("\n");
}

// Reads the octets of a hex string ("xx xx ...") and prints what `read`
// finds in them, or the system exception it raised.
template <class Read> void read_case(bool little, const char* hex, Read read)
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
        read(s);
    } catch (CORBA::SystemException& e) {
        std::printf("%s minor %lu\n", e._name(), (unsigned long)e.minor());
    }
}

// A Derived with name "cut" and weight 1.5; with `extra`, a node 3 whose
// both children are one node 4.
Test::Derived* make_derived(bool extra)
{
    Test::Derived* d = new OBV_Test::Derived;
    d->name("cut");
    d->weight(1.5);
    if (extra) {
        d->extra(new OBV_Test::Node(3, 0, 0));
        Test::Node_var four = new OBV_Test::Node(4, 0, 0);
        d->extra()->left(four);
        d->extra()->right(four);
    }
    return d;
}

// A node 1 whose both children are one node 2.
Test::Node* make_shared_pair()
{
    Test::Node* root = new OBV_Test::Node(1, 0, 0);
    Test::Node_var child = new OBV_Test::Node(2, 0, 0);
    root->left(child);
    root->right(child);
    return root;
}

void write_all(bool little)
{
    write_case("nodes", little, [](cdrMemoryStream& s) {
        Test::Node_var root = make_shared_pair();
        Test::Node_var cycle = new OBV_Test::Node(3, 0, 0);
        cycle->left(cycle);
        Test::Node::_NP_marshal(root, s);
        Test::Node::_NP_marshal(root, s);
        Test::Node::_NP_marshal(cycle, s);
        Test::Node::_NP_marshal(0, s);
        cycle->left(0);
    });
    write_case("derived", little, [](cdrMemoryStream& s) {
        Test::Derived_var d = make_derived(true);
        Test::Derived::_NP_marshal(d, s);
    });
    // Formal type Base: with type information and in chunks.
    write_case("chunked-null", little, [](cdrMemoryStream& s) {
        Test::Derived_var d = make_derived(false);
        Test::Base::_NP_marshal(d, s);
    });
    write_case("chunked", little, [](cdrMemoryStream& s) {
        Test::Derived_var d = make_derived(true);
        Test::Base::_NP_marshal(d, s);
    });
    // A node written, then an any holding it: the any's value refers to
    // nothing outside it.
    write_case("any", little, [](cdrMemoryStream& s) {
        Test::Node_var root = make_shared_pair();
        Test::Node::_NP_marshal(root, s);
        CORBA::Any a;
        a <<= root.in();
        a >>= s;
    });
    // A level of inheritance that starts with a primitive member: omniORB
    // starts a chunk for it.
    write_case("counted", little, [](cdrMemoryStream& s) {
        Test::Counted_var c = new OBV_Test::Counted;
        c->name("ab");
        c->count(7);
        c->ratio(0.5);
        Test::Base::_NP_marshal(c, s);
    });
    write_case("box", little, [](cdrMemoryStream& s) {
        Test::StringBox_var b = new Test::StringBox("boxed");
        Test::StringBox::_NP_marshal(b, s);
        Test::StringBox::_NP_marshal(b, s);
    });
}

void read_all(bool little, const char* hex)
{
    read_case(little, hex, [](cdrMemoryStream& s) {
        Test::Node_var n = Test::Node::_NP_unmarshal(s);
        std::printf("node %d left %d right %d shared %d\n", n ? n->label() : -1,
                    n && n->left() ? n->left()->label() : -1, n && n->right() ? n->right()->label() : -1,
                    n && n->left() == n->right());
        Test::Base_var b = Test::Base::_NP_unmarshal(s);
        Test::Derived* d = Test::Derived::_downcast(b);
        std::printf("base %s derived %d weight %g\n", b ? b->name() : "-", d != 0, d ? d->weight() : 0.0);
        Test::StringBox_var box = Test::StringBox::_NP_unmarshal(s);
        std::printf("box %s left %lu\n", box ? box->_value() : "-", (unsigned long)s.checkInputOverrun(1, 1));
    });
}

// A Test::Counted in chunks (formal type Base), as we write it.
void read_counted(bool little, const char* hex)
{
    read_case(little, hex, [](cdrMemoryStream& s) {
        Test::Base_var b = Test::Base::_NP_unmarshal(s);
        Test::Counted* c = Test::Counted::_downcast(b);
        std::printf("base %s count %d ratio %g\n", b ? b->name() : "-", c ? (int)c->count() : -1, c ? c->ratio() : 0.0);
    });
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
