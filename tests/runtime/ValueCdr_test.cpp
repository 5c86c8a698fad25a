// Values through the CDR streams: graphs that must keep their shape,
// truncation to a known base, value boxes, factories, and malformed
// encodings that must give MARSHAL. The value classes are written by hand
// as generated value types implement the runtime's interface.
#include <zantic_sys/yvcxx.h>
#include <zantic_sys/YV_Cxx/ValueMarshal.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

typedef std::vector<unsigned char> Octets;

// A node of a graph: a label and two values of its own type.
class Node : public virtual CORBA::ValueBase {
public:
    explicit Node(CORBA::Long l = 0) : label(l) {}
    static const char* _yv_value_id() { return "IDL:Test/Node:1.0"; }
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/Node:1.0"};
        count = 1;
        return ids;
    }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override
    {
        out.write_long(label);
        YV_Cxx::Marshal<NodeVar>::write(out, left);
        YV_Cxx::Marshal<NodeVar>::write(out, right);
    }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override
    {
        label = in.read_long();
        YV_Cxx::Marshal<NodeVar>::read(in, left);
        YV_Cxx::Marshal<NodeVar>::read(in, right);
    }

    typedef YV_Cxx::Value_var<Node> NodeVar;
    CORBA::Long label;
    NodeVar left;
    NodeVar right;
};
typedef Node::NodeVar Node_var;

// A base that a truncatable value derives from.
class Base : public virtual CORBA::ValueBase {
public:
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/Base:1.0"};
        count = 1;
        return ids;
    }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override { out.write_string(name.c_str()); }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override
    {
        CORBA::String_var s = in.read_string();
        name = s.in();
    }
    std::string name;
};

// Truncatable to Base: written in chunks, with a nested value and a
// double after it.
class Derived : public Base {
public:
    static const char* _yv_value_id() { return "IDL:Test/Derived:1.0"; }
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/Derived:1.0", "IDL:Test/Base:1.0"};
        count = 2;
        return ids;
    }
    CORBA::Boolean _yv_is_chunked() const override { return true; }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override
    {
        Base::_yv_marshal_state(out);
        YV_Cxx::Marshal<Node_var>::write(out, extra);
        out.write_double(weight);
    }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override
    {
        Base::_yv_unmarshal_state(in);
        YV_Cxx::Marshal<Node_var>::read(in, extra);
        weight = in.read_double();
    }
    Node_var extra;
    CORBA::Double weight = 0;
};

// A value box of string: made by the runtime, no factory needed.
class StringBox : public virtual CORBA::ValueBase {
public:
    explicit StringBox(const char* s = "") : text(CORBA::string_dup(s)) {}
    static StringBox* _yv_create_for_unmarshal() { return new StringBox; }
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/StringBox:1.0"};
        count = 1;
        return ids;
    }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override { out.write_string(text.in()); }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override { text = in.read_string(); }
    CORBA::String_var text;
};
typedef YV_Cxx::Value_var<StringBox> StringBox_var;

template <class T>
class Factory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new T; }
};

CORBA::ORB_ptr orb()
{
    int argc = 0;
    return CORBA::ORB_init(argc, nullptr);
}

// Registers factories for the test's duration.
class Factories {
public:
    explicit Factories(std::initializer_list<std::pair<const char*, CORBA::ValueFactory>> list)
    {
        for (const auto& f : list) {
            ids.push_back(f.first);
            CORBA::ValueFactoryBase_var previous = orb()->register_value_factory(f.first, f.second);
            f.second->_remove_ref();
        }
    }
    ~Factories()
    {
        for (const auto& id : ids)
            orb()->unregister_value_factory(id.c_str());
    }
    std::vector<std::string> ids;
};

// Cyclic graphs read back keep themselves alive: a check cuts the cycle.
void cut(Node* n)
{
    if (n != nullptr) {
        n->left = nullptr;
        n->right = nullptr;
    }
}

TEST(ValueCdr, GraphsKeepTheirShapeInBothByteOrders)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}};
    struct Case {
        const char* name;
        std::function<Node_var()> build;
        std::function<void(Node*)> check;
    };
    const Case cases[] = {
        {"null", [] { return Node_var(); }, [](Node* n) { EXPECT_EQ(n, nullptr); }},
        {"single",
         [] { return Node_var(new Node(7)); },
         [](Node* n) {
             ASSERT_NE(n, nullptr);
             EXPECT_EQ(n->label, 7);
             EXPECT_EQ(n->left.in(), nullptr);
             EXPECT_EQ(n->right.in(), nullptr);
         }},
        {"shared child",
         [] {
             Node_var root = new Node(1);
             root->left = new Node(2);
             root->right = root->left;
             return root;
         },
         [](Node* n) {
             ASSERT_NE(n->left.in(), nullptr);
             EXPECT_EQ(n->left.in(), n->right.in());
             EXPECT_EQ(n->left->label, 2);
         }},
        {"two distinct children",
         [] {
             Node_var root = new Node(1);
             root->left = new Node(2);
             root->right = new Node(3);
             return root;
         },
         [](Node* n) {
             EXPECT_NE(n->left.in(), n->right.in());
             EXPECT_EQ(n->left->label + n->right->label, 5);
         }},
        {"cycle",
         [] {
             Node_var root = new Node(1);
             root->left = new Node(2);
             root->left->left = root;
             return root;
         },
         [](Node* n) {
             ASSERT_NE(n->left.in(), nullptr);
             EXPECT_EQ(n->left->left.in(), n);
             cut(n->left.in());
         }},
    };
    for (const auto& c : cases) {
        for (bool little : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (little ? " little-endian" : " big-endian"));
            Node_var root = c.build();
            YV_CDR::OutputStream out(little);
            out.write_octet(9); // values start unaligned
            YV_Cxx::Marshal<Node_var>::write(out, root);
            out.write_long(-77);
            YV_CDR::InputStream in(out.data(), out.size(), little);
            EXPECT_EQ(in.read_octet(), 9);
            Node_var back;
            YV_Cxx::Marshal<Node_var>::read(in, back);
            EXPECT_EQ(in.read_long(), -77);
            EXPECT_EQ(in.remaining(), 0u);
            c.check(back.in());
            cut(root.in());
        }
    }
}

TEST(ValueCdr, SharingSpansTheWholeStream)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}};
    Node_var shared = new Node(4);
    StringBox_var box = new StringBox("boxed");
    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<Node_var>::write(out, shared);
    YV_Cxx::Marshal<StringBox_var>::write(out, box);
    out.align(4);
    const std::size_t first = out.size();
    YV_Cxx::Marshal<Node_var>::write(out, shared);
    YV_Cxx::Marshal<StringBox_var>::write(out, box);
    // Each second one is an indirection: tag and offset.
    EXPECT_EQ(out.size() - first, 16u);

    YV_CDR::InputStream in(out.data(), out.size(), false);
    Node_var a, b;
    StringBox_var x, y;
    YV_Cxx::Marshal<Node_var>::read(in, a);
    YV_Cxx::Marshal<StringBox_var>::read(in, x);
    YV_Cxx::Marshal<Node_var>::read(in, b);
    YV_Cxx::Marshal<StringBox_var>::read(in, y);
    EXPECT_EQ(a.in(), b.in());
    EXPECT_EQ(x.in(), y.in());
    EXPECT_STREQ(x->text.in(), "boxed");
}

TEST(ValueCdr, EncodingOfTagsIdsAndIndirections)
{
    // Two distinct nodes: the second repeats the id by indirection.
    Node_var root = new Node(1);
    root->left = new Node(2);
    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<Node_var>::write(out, root);
    const Octets expected = {
        0x7f, 0xff, 0xff, 0x02,                                            // tag, one id
        0, 0, 0, 18, 'I', 'D', 'L', ':', 'T', 'e', 's', 't', '/', 'N', 'o', // id
        'd', 'e', ':', '1', '.', '0', 0, 0, 0,                             //
        0, 0, 0, 1,                                                        // label
        0x7f, 0xff, 0xff, 0x02,                                            // left: tag
        0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xdc,                    // id at -36
        0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0,                                // label, two nulls
        0, 0, 0, 0,                                                        // right: null
    };
    EXPECT_EQ(Octets(out.data(), out.data() + out.size()), expected);

    // A truncatable value: id list, one chunk, end tag -1.
    Base* base = new Derived;
    base->name = "b";
    YV_Cxx::Value_var<Base> held = base;
    YV_CDR::OutputStream chunked(false);
    YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::write(chunked, held);
    const Octets head = {0x7f, 0xff, 0xff, 0x0e, 0, 0, 0, 2};
    ASSERT_GT(chunked.size(), 8u);
    EXPECT_EQ(Octets(chunked.data(), chunked.data() + 8), head);
    // ...one chunk: the name, the null extra (inside), the double; end tag.
    const Octets tail = {0, 0, 0, 24, 0, 0, 0, 2, 'b', 0, 0, 0, 0, 0, 0, 0, 0,
                         0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff, 0xff, 0xff};
    EXPECT_EQ(Octets(chunked.data() + chunked.size() - tail.size(), chunked.data() + chunked.size()), tail);
}

TEST(ValueCdr, TruncatableValuesReadWholeOrAsTheirKnownBase)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}, {"IDL:Test/Base:1.0", new Factory<Base>}};
    for (bool whole : {true, false}) {
        for (bool little : {false, true}) {
            SCOPED_TRACE(std::string(whole ? "whole" : "truncated") + (little ? " little-endian" : " big-endian"));
            std::unique_ptr<Factories> derived;
            if (whole)
                derived.reset(new Factories{{"IDL:Test/Derived:1.0", new Factory<Derived>}});
            Derived* d = new Derived;
            d->name = "cut";
            d->extra = new Node(3);
            d->extra->left = new Node(4);
            d->extra->right = d->extra->left;
            d->weight = 1.5;
            YV_Cxx::Value_var<Base> sent = d;
            YV_CDR::OutputStream out(little);
            YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::write(out, sent);
            YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::write(out, sent);
            YV_Cxx::Marshal<Node_var>::write(out, Node_var(new Node(8)));
            YV_CDR::InputStream in(out.data(), out.size(), little);
            YV_Cxx::Value_var<Base> first, again;
            YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, first);
            ASSERT_NE(first.in(), nullptr);
            EXPECT_EQ(first->name, "cut");
            Derived* back = dynamic_cast<Derived*>(first.in());
            EXPECT_EQ(back != nullptr, whole);
            if (back != nullptr) {
                ASSERT_NE(back->extra.in(), nullptr);
                EXPECT_EQ(back->extra->label, 3);
                ASSERT_NE(back->extra->left.in(), nullptr);
                EXPECT_EQ(back->extra->left->label, 4);
                EXPECT_EQ(back->extra->right.in(), back->extra->left.in());
                EXPECT_EQ(back->weight, 1.5);
            }
            YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, again);
            EXPECT_EQ(again.in(), first.in());
            Node_var after;
            YV_Cxx::Marshal<Node_var>::read(in, after);
            EXPECT_EQ(after->label, 8);
            EXPECT_EQ(in.remaining(), 0u);
        }
    }
}

TEST(ValueCdr, FactoriesAreFoundByRepositoryId)
{
    CORBA::ORB_ptr o = orb();
    Node_var n = new Node(1);
    YV_CDR::OutputStream out;
    YV_Cxx::Marshal<Node_var>::write(out, n);
    auto read = [&] {
        YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
        Node_var back;
        YV_Cxx::Marshal<Node_var>::read(in, back);
        return back;
    };
    try {
        read();
        FAIL() << "read without a factory";
    } catch (const CORBA::MARSHAL& e) {
        EXPECT_EQ(e.minor(), YV_Cxx::minor_no_value_factory);
    }
    EXPECT_EQ(o->lookup_value_factory("IDL:Test/Node:1.0"), nullptr);
    EXPECT_THROW(o->unregister_value_factory("IDL:Test/Node:1.0"), CORBA::BAD_PARAM);
    EXPECT_THROW(o->register_value_factory("IDL:Test/Node:1.0", nullptr), CORBA::BAD_PARAM);

    CORBA::ValueFactoryBase_var first = new Factory<Node>;
    EXPECT_EQ(o->register_value_factory("IDL:Test/Node:1.0", first), nullptr);
    CORBA::ValueFactoryBase_var found = o->lookup_value_factory("IDL:Test/Node:1.0");
    EXPECT_EQ(found.in(), first.in());
    EXPECT_EQ(read()->label, 1);
    CORBA::ValueFactoryBase_var second = new Factory<Node>;
    CORBA::ValueFactoryBase_var replaced = o->register_value_factory("IDL:Test/Node:1.0", second);
    EXPECT_EQ(replaced.in(), first.in());
    o->unregister_value_factory("IDL:Test/Node:1.0");
    EXPECT_THROW(read(), CORBA::MARSHAL);
}

Octets from_hex(const char* hex)
{
    Octets o;
    for (const char* p = hex; *p != 0; p += (p[2] == ' ' ? 3 : 2))
        o.push_back(static_cast<unsigned char>(std::stoul(std::string(p, 2), nullptr, 16)));
    return o;
}

// omniORB's octets of a Derived with a node inside (formal type Base).
const char* const omni_chunked_be =
    "7f ff ff 0e 00 00 00 02 00 00 00 15 49 44 4c 3a 54 65 73 74 2f 44 65 72 69 76 65 64 3a 31 2e 30 00 00 00 "
    "00 00 00 00 12 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 00 00 00 08 00 00 00 04 63 75 "
    "74 00 7f ff ff 0a 00 00 00 12 49 44 4c 3a 54 65 73 74 2f 4e 6f 64 65 3a 31 2e 30 00 00 00 00 00 00 04 00 "
    "00 00 03 7f ff ff 0a ff ff ff ff ff ff ff d8 00 00 00 0c 00 00 00 04 00 00 00 00 00 00 00 00 ff ff ff fd "
    "00 00 00 08 ff ff ff ff ff ff ff d8 ff ff ff fe 00 00 00 08 3f f8 00 00 00 00 00 00 ff ff ff ff";
const char* const omni_chunked_le =
    "0e ff ff 7f 02 00 00 00 15 00 00 00 49 44 4c 3a 54 65 73 74 2f 44 65 72 69 76 65 64 3a 31 2e 30 00 00 00 "
    "00 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 08 00 00 00 04 00 00 00 63 75 "
    "74 00 0a ff ff 7f 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 4e 6f 64 65 3a 31 2e 30 00 00 00 04 00 00 00 03 "
    "00 00 00 0a ff ff 7f ff ff ff ff d8 ff ff ff 0c 00 00 00 04 00 00 00 00 00 00 00 00 00 00 00 fd ff ff ff "
    "08 00 00 00 ff ff ff ff d8 ff ff ff fe ff ff ff 08 00 00 00 00 00 00 00 00 00 f8 3f ff ff ff ff";

// Octets omniORB 4.2 writes (its cdrMemoryStream, from the classes omniidl
// makes of the test's value types; value_vectors/ printed them): a value of
// the formal type goes without type information and unchunked, even when
// truncatable; a derived value with its ids and in chunks, one chunk per
// level of inheritance, null and indirections inside chunks.
TEST(ValueCdr, ReadsWhatOmniOrbWrites)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}, {"IDL:Test/Base:1.0", new Factory<Base>}};
    std::unique_ptr<Factories> derived(new Factories{{"IDL:Test/Derived:1.0", new Factory<Derived>}});
    auto read_derived = [](YV_CDR::InputStream& in, bool with_extra) {
        YV_Cxx::Value_var<Base> b;
        YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, b);
        ASSERT_NE(b.in(), nullptr);
        EXPECT_EQ(b->name, "cut");
        Derived* d = dynamic_cast<Derived*>(b.in());
        ASSERT_NE(d, nullptr);
        EXPECT_EQ(d->weight, 1.5);
        EXPECT_EQ(d->extra.in() != nullptr, with_extra);
        if (with_extra) {
            EXPECT_EQ(d->extra->label, 3);
            ASSERT_NE(d->extra->left.in(), nullptr);
            EXPECT_EQ(d->extra->left->label, 4);
            EXPECT_EQ(d->extra->left.in(), d->extra->right.in());
        }
    };
    const struct {
        const char* name;
        const char* be;
        const char* le;
        std::function<void(YV_CDR::InputStream&)> check;
    } cases[] = {
        {"a shared child, the same root again, a cycle, null",
         "7f ff ff 00 00 00 00 01 7f ff ff 00 00 00 00 02 00 00 00 00 00 00 00 00 ff ff ff ff ff ff ff ec ff ff ff ff "
         "ff ff ff dc 7f ff ff 00 00 00 00 03 ff ff ff ff ff ff ff f4 00 00 00 00 00 00 00 00",
         "00 ff ff 7f 01 00 00 00 00 ff ff 7f 02 00 00 00 00 00 00 00 00 00 00 00 ff ff ff ff ec ff ff ff ff ff ff ff "
         "dc ff ff ff 00 ff ff 7f 03 00 00 00 ff ff ff ff f4 ff ff ff 00 00 00 00 00 00 00 00",
         [](YV_CDR::InputStream& in) {
             Node_var root, again, cycle, none;
             for (Node_var* v : {&root, &again, &cycle, &none})
                 YV_Cxx::Marshal<Node_var>::read(in, *v);
             ASSERT_NE(root.in(), nullptr);
             EXPECT_EQ(root->label, 1);
             ASSERT_NE(root->left.in(), nullptr);
             EXPECT_EQ(root->left.in(), root->right.in());
             EXPECT_EQ(root->left->label, 2);
             EXPECT_EQ(again.in(), root.in());
             ASSERT_NE(cycle.in(), nullptr);
             EXPECT_EQ(cycle->left.in(), cycle.in());
             EXPECT_EQ(none.in(), nullptr);
             cut(cycle.in());
         }},
        {"a truncatable value as its own type",
         "7f ff ff 00 00 00 00 04 63 75 74 00 7f ff ff 00 00 00 00 03 7f ff ff 00 00 00 00 04 00 00 00 00 00 00 00 00 "
         "ff ff ff ff ff ff ff ec 00 00 00 00 3f f8 00 00 00 00 00 00",
         "00 ff ff 7f 04 00 00 00 63 75 74 00 00 ff ff 7f 03 00 00 00 00 ff ff 7f 04 00 00 00 00 00 00 00 00 00 00 00 "
         "ff ff ff ff ec ff ff ff 00 00 00 00 00 00 00 00 00 00 f8 3f",
         [](YV_CDR::InputStream& in) {
             YV_Cxx::Value_var<Derived> d;
             YV_Cxx::Marshal<YV_Cxx::Value_var<Derived>>::read(in, d);
             ASSERT_NE(d.in(), nullptr);
             EXPECT_EQ(d->name, "cut");
             ASSERT_NE(d->extra.in(), nullptr);
             EXPECT_EQ(d->extra->label, 3);
             ASSERT_NE(d->extra->left.in(), nullptr);
             EXPECT_EQ(d->extra->left.in(), d->extra->right.in());
             EXPECT_EQ(d->weight, 1.5);
         }},
        {"a truncatable value in chunks, null inside a chunk",
         "7f ff ff 0e 00 00 00 02 00 00 00 15 49 44 4c 3a 54 65 73 74 2f 44 65 72 69 76 65 64 3a 31 2e 30 00 00 00 "
         "00 00 00 00 12 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 00 00 00 08 00 00 00 04 63 75 "
         "74 00 00 00 00 0c 00 00 00 00 3f f8 00 00 00 00 00 00 ff ff ff ff",
         "0e ff ff 7f 02 00 00 00 15 00 00 00 49 44 4c 3a 54 65 73 74 2f 44 65 72 69 76 65 64 3a 31 2e 30 00 00 00 "
         "00 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 08 00 00 00 04 00 00 00 63 75 "
         "74 00 0c 00 00 00 00 00 00 00 00 00 00 00 00 00 f8 3f ff ff ff ff",
         [&](YV_CDR::InputStream& in) { read_derived(in, false); }},
        {"a truncatable value in chunks, a node inside, a shared node inside that",
         omni_chunked_be,
         omni_chunked_le,
         [&](YV_CDR::InputStream& in) { read_derived(in, true); }},
        {"a string box twice",
         "7f ff ff 00 00 00 00 06 62 6f 78 65 64 00 00 00 ff ff ff ff ff ff ff ec",
         "00 ff ff 7f 06 00 00 00 62 6f 78 65 64 00 00 00 ff ff ff ff ec ff ff ff",
         [](YV_CDR::InputStream& in) {
             StringBox_var a, b;
             YV_Cxx::Marshal<StringBox_var>::read(in, a);
             YV_Cxx::Marshal<StringBox_var>::read(in, b);
             ASSERT_NE(a.in(), nullptr);
             EXPECT_STREQ(a->text.in(), "boxed");
             EXPECT_EQ(a.in(), b.in());
         }},
    };
    for (const auto& c : cases) {
        for (bool little : {false, true}) {
            SCOPED_TRACE(std::string(c.name) + (little ? " little-endian" : " big-endian"));
            const Octets data = from_hex(little ? c.le : c.be);
            YV_CDR::InputStream in(data.data(), data.size(), little);
            c.check(in);
            EXPECT_EQ(in.remaining(), 0u);
        }
    }
    // Without Derived's factory: truncated to Base, the rest skipped.
    derived.reset();
    for (bool little : {false, true}) {
        const Octets data = from_hex(little ? omni_chunked_le : omni_chunked_be);
        YV_CDR::InputStream in(data.data(), data.size(), little);
        YV_Cxx::Value_var<Base> b;
        YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, b);
        ASSERT_NE(b.in(), nullptr);
        EXPECT_EQ(dynamic_cast<Derived*>(b.in()), nullptr);
        EXPECT_EQ(b->name, "cut");
        EXPECT_EQ(in.remaining(), 0u);
    }
}

// Big-endian octets built by hand.
struct Bytes {
    Octets o;
    Bytes& l(CORBA::ULong v)
    {
        for (int s = 24; s >= 0; s -= 8)
            o.push_back(static_cast<unsigned char>(v >> s));
        return *this;
    }
    Bytes& s(const char* text)
    {
        const std::string t(text);
        l(static_cast<CORBA::ULong>(t.size() + 1));
        o.insert(o.end(), t.begin(), t.end());
        o.push_back(0);
        while (o.size() % 4 != 0)
            o.push_back(0);
        return *this;
    }
};

TEST(ValueCdr, MalformedEncodingsAreMarshalErrors)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}, {"IDL:Test/Base:1.0", new Factory<Base>}};
    const char* node = "IDL:Test/Node:1.0";
    const char* derived = "IDL:Test/Derived:1.0";
    const struct {
        const char* name;
        Octets data;
    } cases[] = {
        {"tag below the value tags", Bytes().l(0x7ffffe02).s(node).l(1).l(0).l(0).o},
        {"reserved tag bits", Bytes().l(0x7fffff12).s(node).l(1).l(0).l(0).o},
        {"type bits 4", Bytes().l(0x7fffff04).s(node).l(1).l(0).l(0).o},
        {"indirection forward", Bytes().l(0xffffffff).l(4).l(0).o},
        {"indirection before the stream", Bytes().l(0xffffffff).l(0xfffffc00).o},
        {"indirection to no value", Bytes().l(0).l(0xffffffff).l(0xfffffffc).o},
        {"indirection to itself", Bytes().l(0xffffffff).l(0xfffffffc).o},
        {"id indirection to no id", Bytes().l(0x7fffff02).l(0xffffffff).l(0xfffffff8).o},
        {"empty id list", Bytes().l(0x7fffff06).l(0).o},
        {"id list longer than the data", Bytes().l(0x7fffff06).l(1000).s(node).o},
        {"no type information and no expected type", Bytes().l(0x7fffff00).l(1).l(0).l(0).o},
        {"chunk longer than the data", Bytes().l(0x7fffff0e).l(2).s(derived).s("IDL:Test/Base:1.0").l(64).s("x").o},
        {"state overruns its chunk",
         Bytes().l(0x7fffff0e).l(2).s(derived).s("IDL:Test/Base:1.0").l(4).s("abcdef").l(0xffffffff).o},
        {"end tag deeper than the value", Bytes().l(0x7fffff0a).s("IDL:Test/Base:1.0").l(8).s("abc").l(0xfffffffe).o},
        {"unchunked value inside a chunked one",
         Bytes().l(0x7fffff0e).l(2).s(derived).s("IDL:Test/Base:1.0").l(8).s("abc").l(0x7fffff02).s(node).l(1).l(0).l(0).o},
        {"truncation of an unchunked value", Bytes().l(0x7fffff06).l(2).s(derived).s("IDL:Test/Base:1.0").s("abc").o},
        {"value header inside a chunk",
         Bytes().l(0x7fffff0e).l(2).s(derived).s("IDL:Test/Base:1.0").l(28).s("abc").l(0x7fffff02).s(node).o},
        {"null overrunning its chunk",
         Bytes().l(0x7fffff0e).l(2).s(derived).s("IDL:Test/Base:1.0").l(10).s("abc").l(0).l(0).o},
        {"unknown type", Bytes().l(0x7fffff02).s("IDL:Test/Nothing:1.0").l(1).o},
        {"no end tag", Bytes().l(0x7fffff0a).s("IDL:Test/Base:1.0").l(8).s("abc").o},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        YV_CDR::InputStream in(c.data.data(), c.data.size(), false);
        YV_Cxx::Value_var<CORBA::ValueBase> v;
        EXPECT_THROW(
            {
                YV_Cxx::Marshal<YV_Cxx::Value_var<CORBA::ValueBase>>::read(in, v);
                YV_Cxx::Marshal<YV_Cxx::Value_var<CORBA::ValueBase>>::read(in, v);
            },
            CORBA::MARSHAL);
    }
}

TEST(ValueCdr, EveryCutOfAnEncodingAndDeepNestingAreRefused)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}, {"IDL:Test/Base:1.0", new Factory<Base>}};
    // Read whole (a shared node inside), and truncated (where an indirection
    // in the skipped part followed by the cut would be a whole value
    // itself, so nothing is shared).
    for (bool whole : {true, false}) {
        std::unique_ptr<Factories> derived;
        if (whole)
            derived.reset(new Factories{{"IDL:Test/Derived:1.0", new Factory<Derived>}});
        Derived* d = new Derived;
        d->name = "whole";
        d->extra = new Node(3);
        d->extra->right = new Node(4);
        d->extra->left = whole ? d->extra->right : Node_var(new Node(5));
        YV_Cxx::Value_var<Base> sent = d;
        YV_CDR::OutputStream out(true);
        YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::write(out, sent);
        for (std::size_t n = 0; n < out.size(); ++n) {
            SCOPED_TRACE(std::to_string(n) + (whole ? " whole" : " truncated"));
            YV_CDR::InputStream in(out.data(), n, true);
            YV_Cxx::Value_var<Base> v;
            EXPECT_THROW(YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, v), CORBA::MARSHAL);
        }
    }

    // A chain deeper than the decoder follows.
    Node_var chain = new Node(0);
    for (int i = 1; i < 100; ++i) {
        Node_var next = new Node(i);
        next->left = chain._retn();
        chain = next._retn();
    }
    YV_CDR::OutputStream deep;
    YV_Cxx::Marshal<Node_var>::write(deep, chain);
    YV_CDR::InputStream in(deep.data(), deep.size(), deep.little_endian());
    Node_var back;
    try {
        YV_Cxx::Marshal<Node_var>::read(in, back);
        FAIL() << "a chain of 100 values was read";
    } catch (const CORBA::MARSHAL& e) {
        EXPECT_EQ(e.minor(), YV_CDR::minor_nesting);
    }
}

} // namespace
