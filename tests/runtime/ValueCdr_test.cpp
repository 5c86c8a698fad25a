// Values through the CDR streams: graphs that must keep their shape,
// truncation to a known base, value boxes, factories, and malformed
// encodings that must give MARSHAL. The value classes are written by hand
// as generated value types implement the runtime's interface.
#include <zantic_sys/yvcxx.h>
#include <zantic_sys/YV_Cxx/AnyInsert.h>
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

// Truncatable to Base, its own state starting with primitives.
class Counted : public Base {
public:
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/Counted:1.0", "IDL:Test/Base:1.0"};
        count = 2;
        return ids;
    }
    CORBA::Boolean _yv_is_chunked() const override { return true; }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override
    {
        Base::_yv_marshal_state(out);
        out.write_long(count);
        out.write_double(ratio);
    }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override
    {
        Base::_yv_unmarshal_state(in);
        count = in.read_long();
        ratio = in.read_double();
    }
    CORBA::Long count = 0;
    CORBA::Double ratio = 0;
};

// Truncatable to Counted and Base; a sequence of shorts after Counted's
// state.
class Sampled : public Counted {
public:
    const char* const* _yv_type_ids(CORBA::ULong& count) const override
    {
        static const char* const ids[] = {"IDL:Test/Sampled:1.0", "IDL:Test/Counted:1.0", "IDL:Test/Base:1.0"};
        count = 3;
        return ids;
    }
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override
    {
        Counted::_yv_marshal_state(out);
        out.write_ulong(static_cast<CORBA::ULong>(samples.size()));
        for (CORBA::Short v : samples)
            out.write_short(v);
    }
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override
    {
        Counted::_yv_unmarshal_state(in);
        samples.resize(in.read_count(2));
        in.read_array(samples.data(), samples.size());
    }
    std::vector<CORBA::Short> samples;
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

// omniORB's octets of a node, then an any holding it.
const char* const omni_any_be =
    "7f ff ff 00 00 00 00 01 7f ff ff 00 00 00 00 02 00 00 00 00 00 00 00 00 ff ff ff ff ff ff ff ec 00 00 00 1d "
    "00 00 00 72 01 00 00 00 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 4e 6f 64 65 3a 31 2e 30 00 00 00 05 00 00 00 "
    "4e 6f 64 65 00 00 00 00 00 00 00 00 03 00 00 00 06 00 00 00 6c 61 62 65 6c 00 00 00 03 00 00 00 00 00 00 00 "
    "05 00 00 00 6c 65 66 74 00 00 00 00 ff ff ff ff a4 ff ff ff 00 00 00 00 06 00 00 00 72 69 67 68 74 00 00 00 "
    "ff ff ff ff 8c ff ff ff 00 00 00 00 ff ff ff ff ff ff ff 60";
const char* const omni_any_le =
    "00 ff ff 7f 01 00 00 00 00 ff ff 7f 02 00 00 00 00 00 00 00 00 00 00 00 ff ff ff ff ec ff ff ff 1d 00 00 00 "
    "72 00 00 00 01 d3 ff 0a 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 4e 6f 64 65 3a 31 2e 30 00 a4 14 05 00 00 00 "
    "4e 6f 64 65 00 00 00 00 00 00 00 00 03 00 00 00 06 00 00 00 6c 61 62 65 6c 00 00 00 03 00 00 00 00 00 00 00 "
    "05 00 00 00 6c 65 66 74 00 00 00 00 ff ff ff ff a4 ff ff ff 00 00 00 00 06 00 00 00 72 69 67 68 74 00 00 00 "
    "ff ff ff ff 8c ff ff ff 00 00 00 00 ff ff ff ff 60 ff ff ff";

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
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>},
                        {"IDL:Test/Base:1.0", new Factory<Base>},
                        {"IDL:Test/Counted:1.0", new Factory<Counted>}};
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
        {"a level of inheritance starting a chunk with a primitive",
         "7f ff ff 0e 00 00 00 02 00 00 00 15 49 44 4c 3a 54 65 73 74 2f 43 6f 75 6e 74 65 64 3a 31 2e 30 00 00 00 "
         "00 00 00 00 12 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 00 00 00 07 00 00 00 03 61 62 "
         "00 00 00 00 00 0c 00 00 00 07 3f e0 00 00 00 00 00 00 ff ff ff ff",
         "0e ff ff 7f 02 00 00 00 15 00 00 00 49 44 4c 3a 54 65 73 74 2f 43 6f 75 6e 74 65 64 3a 31 2e 30 00 00 00 "
         "00 12 00 00 00 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 07 00 00 00 03 00 00 00 61 62 "
         "00 00 0c 00 00 00 07 00 00 00 00 00 00 00 00 00 e0 3f ff ff ff ff",
         [](YV_CDR::InputStream& in) {
             YV_Cxx::Value_var<Base> b;
             YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, b);
             Counted* c = dynamic_cast<Counted*>(b.in());
             ASSERT_NE(c, nullptr);
             EXPECT_EQ(c->name, "ab");
             EXPECT_EQ(c->count, 7);
             EXPECT_EQ(c->ratio, 0.5);
         }},
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

// Node's type code, as generated code defines it.
extern const CORBA::TypeCode_ptr tc_Node;
const CORBA::TypeCode::Member node_members[] = {
    {"label", &CORBA::_tc_long, 0, 1}, {"left", &tc_Node, 0, 1}, {"right", &tc_Node, 0, 1}};
CORBA::TypeCode node_tco = CORBA::TypeCode::yv_value("IDL:Test/Node:1.0", "Node", CORBA::VM_NONE, nullptr, node_members, 3);
const CORBA::TypeCode_ptr tc_Node = &node_tco;
typedef YV_Cxx::ValueStreamable<Node> NodeStreamable;

// A value in an any: read as a value (sharing with what the message held
// before, as omniORB writes it), written again in another byte order and
// alignment, extracted with its shape, compared by state and shape.
TEST(ValueCdr, ValuesTravelInAnys)
{
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}};
    auto extract = [](const CORBA::Any& a) -> Node* {
        Node* n = nullptr;
        EXPECT_TRUE(YV_Cxx::any_extract_value<NodeStreamable>(a, tc_Node, n));
        return n;
    };
    auto check_shape = [](const Node* n) {
        ASSERT_NE(n, nullptr);
        EXPECT_EQ(n->label, 1);
        ASSERT_NE(n->left.in(), nullptr);
        EXPECT_EQ(n->left.in(), n->right.in());
        EXPECT_EQ(n->left->label, 2);
    };
    // omniORB's octets: a node, then an any whose value is an indirection
    // to it.
    for (bool little : {false, true}) {
        SCOPED_TRACE(little ? "omniORB little-endian" : "omniORB big-endian");
        const Octets data = from_hex(little ? omni_any_le : omni_any_be);
        YV_CDR::InputStream in(data.data(), data.size(), little);
        Node_var before;
        YV_Cxx::Marshal<Node_var>::read(in, before);
        CORBA::Any a;
        YV_Cxx::Marshal<CORBA::Any>::read(in, a);
        EXPECT_EQ(in.remaining(), 0u);
        check_shape(extract(a));
    }

    Node_var root = new Node(1);
    root->left = new Node(2);
    root->right = root->left;
    Node_var cycle = new Node(3);
    cycle->left = cycle;
    CORBA::Any typed, looped;
    YV_Cxx::any_insert_shared<NodeStreamable>(typed, tc_Node, root.in());
    YV_Cxx::any_insert_shared<NodeStreamable>(looped, tc_Node, cycle.in());
    for (bool little : {false, true}) {
        SCOPED_TRACE(little ? "little-endian" : "big-endian");
        YV_CDR::OutputStream out(little);
        YV_Cxx::Marshal<Node_var>::write(out, root);
        YV_Cxx::Marshal<CORBA::Any>::write(out, typed);
        YV_Cxx::Marshal<CORBA::Any>::write(out, looped);
        YV_CDR::InputStream in(out.data(), out.size(), little);
        Node_var before;
        YV_Cxx::Marshal<Node_var>::read(in, before);
        CORBA::Any received, received_loop;
        YV_Cxx::Marshal<CORBA::Any>::read(in, received);
        YV_Cxx::Marshal<CORBA::Any>::read(in, received_loop);
        EXPECT_EQ(in.remaining(), 0u);
        EXPECT_TRUE(received.yv_equal(typed));
        EXPECT_FALSE(received.yv_equal(looped));

        // Passed on in the other byte order, one octet further.
        YV_CDR::OutputStream again(!little);
        again.write_octet(7);
        YV_Cxx::Marshal<CORBA::Any>::write(again, received);
        YV_Cxx::Marshal<CORBA::Any>::write(again, received_loop);
        YV_CDR::InputStream back(again.data(), again.size(), !little);
        back.read_octet();
        CORBA::Any copy, copy_loop;
        YV_Cxx::Marshal<CORBA::Any>::read(back, copy);
        YV_Cxx::Marshal<CORBA::Any>::read(back, copy_loop);
        check_shape(extract(copy));
        EXPECT_TRUE(copy.yv_equal(received));
        EXPECT_TRUE(copy_loop.yv_equal(looped));
        Node* loop = extract(copy_loop);
        ASSERT_NE(loop, nullptr);
        EXPECT_EQ(loop->label, 3);
        EXPECT_EQ(loop->left.in(), loop);
        cut(loop);
        cut(extract(received_loop));
    }
    // A different state is a different value.
    Node_var other = new Node(1);
    other->left = new Node(2);
    other->right = new Node(2);
    CORBA::Any unshared;
    YV_Cxx::any_insert_shared<NodeStreamable>(unshared, tc_Node, other.in());
    EXPECT_FALSE(unshared.yv_equal(typed));
    cut(cycle.in());
}

// Values of anys read without their factories hold each other: a cycle two
// anys of one message share is freed with the last of them, whichever goes
// first and whichever nodes of it they hold (the leak checker of the
// sanitizer build sees what stays).
TEST(ValueCdr, ACycleTwoAnysShareGoesWithTheLastOfThem)
{
    const struct {
        const char* name;
        bool same_root;
        bool first_goes_first;
    } cases[] = {
        {"one root, first any first", true, true},
        {"one root, second any first", true, false},
        {"two nodes of the cycle, first any first", false, true},
        {"two nodes of the cycle, second any first", false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Node_var x = new Node(3);
        Node_var y = new Node(4);
        x->left = y;
        y->left = x;
        CORBA::Any sent_first, sent_second;
        {
            Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>}};
            YV_Cxx::any_insert_shared<NodeStreamable>(sent_first, tc_Node, x.in());
            YV_Cxx::any_insert_shared<NodeStreamable>(sent_second, tc_Node, c.same_root ? x.in() : y.in());
        }
        YV_CDR::OutputStream out(true);
        YV_Cxx::Marshal<CORBA::Any>::write(out, sent_first);
        YV_Cxx::Marshal<CORBA::Any>::write(out, sent_second);
        YV_CDR::InputStream in(out.data(), out.size(), true);
        auto first = std::make_unique<CORBA::Any>();
        auto second = std::make_unique<CORBA::Any>();
        YV_Cxx::Marshal<CORBA::Any>::read(in, *first);
        YV_Cxx::Marshal<CORBA::Any>::read(in, *second);
        EXPECT_EQ(in.remaining(), 0u);
        EXPECT_TRUE(first->yv_equal(sent_first));
        EXPECT_TRUE(second->yv_equal(sent_second));
        if (c.first_goes_first)
            first.reset();
        second.reset();
        first.reset();
        x->left = nullptr;
        y->left = nullptr;
    }
}

// One Sampled value in chunks broken between any two of its primitive
// values, the padding before the break at the end of the chunk or at the
// start of the next: every way reads the same value, whole or truncated to
// Counted.
TEST(ValueCdr, ChunksMayEndBetweenAnyTwoPrimitives)
{
    Factories factories{{"IDL:Test/Counted:1.0", new Factory<Counted>}};
    const std::vector<std::function<void(YV_CDR::OutputStream&)>> items = {
        [](YV_CDR::OutputStream& o) { o.write_ulong(4); },
        [](YV_CDR::OutputStream& o) { o.write_octet_array(reinterpret_cast<const CORBA::Octet*>("abc"), 4); },
        [](YV_CDR::OutputStream& o) { o.write_long(7); },
        [](YV_CDR::OutputStream& o) { o.write_double(0.5); },
        [](YV_CDR::OutputStream& o) { o.write_ulong(3); },
        [](YV_CDR::OutputStream& o) { o.write_short(-1); },
        [](YV_CDR::OutputStream& o) { o.write_short(2); },
        [](YV_CDR::OutputStream& o) { o.write_short(300); },
    };
    const std::size_t alignment[] = {4, 1, 4, 8, 4, 2, 2, 2};
    for (bool whole : {true, false}) {
        std::unique_ptr<Factories> sampled;
        if (whole)
            sampled.reset(new Factories{{"IDL:Test/Sampled:1.0", new Factory<Sampled>}});
        for (unsigned breaks = 0; breaks < (1u << (items.size() - 1)); ++breaks) {
            for (bool pad_in_chunk : {false, true}) {
                for (bool little : {false, true}) {
                    SCOPED_TRACE(std::to_string(breaks) + (pad_in_chunk ? " padded" : "") + (little ? " le" : " be") +
                                 (whole ? " whole" : " truncated"));
                    YV_CDR::OutputStream out(little);
                    out.write_ulong(0x7fffff0e);
                    out.write_ulong(3);
                    for (const char* id : {"IDL:Test/Sampled:1.0", "IDL:Test/Counted:1.0", "IDL:Test/Base:1.0"})
                        out.write_string(id);
                    std::size_t size_at = out.reserve_ulong();
                    for (std::size_t i = 0; i < items.size(); ++i) {
                        if (i > 0 && (breaks & (1u << (i - 1))) != 0) {
                            if (pad_in_chunk)
                                out.align(alignment[i]);
                            out.patch_ulong(size_at, static_cast<CORBA::ULong>(out.size() - size_at - 4));
                            size_at = out.reserve_ulong();
                        }
                        items[i](out);
                    }
                    out.patch_ulong(size_at, static_cast<CORBA::ULong>(out.size() - size_at - 4));
                    out.write_long(-1);

                    YV_CDR::InputStream in(out.data(), out.size(), little);
                    YV_Cxx::Value_var<Base> b;
                    YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::read(in, b);
                    EXPECT_EQ(in.remaining(), 0u);
                    Counted* c = dynamic_cast<Counted*>(b.in());
                    ASSERT_NE(c, nullptr);
                    EXPECT_EQ(c->name, "abc");
                    EXPECT_EQ(c->count, 7);
                    EXPECT_EQ(c->ratio, 0.5);
                    Sampled* s = dynamic_cast<Sampled*>(b.in());
                    EXPECT_EQ(s != nullptr, whole);
                    if (s != nullptr) {
                        EXPECT_EQ(s->samples, (std::vector<CORBA::Short>{-1, 2, 300}));
                    }
                }
            }
        }
    }
}

// Our encoding of a truncatable value: its whole state in one chunk
// (omniORB reads these octets: value_vectors' read-counted).
TEST(ValueCdr, WritesTruncatableStateInOneChunk)
{
    Counted* c = new Counted;
    c->name = "ab";
    c->count = 7;
    c->ratio = 0.5;
    YV_Cxx::Value_var<Base> v = c;
    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<YV_Cxx::Value_var<Base>>::write(out, v);
    EXPECT_EQ(Octets(out.data(), out.data() + out.size()),
              from_hex("7f ff ff 0e 00 00 00 02 00 00 00 15 49 44 4c 3a 54 65 73 74 2f 43 6f 75 6e 74 65 64 3a 31 2e 30 "
                       "00 00 00 00 00 00 00 12 49 44 4c 3a 54 65 73 74 2f 42 61 73 65 3a 31 2e 30 00 00 00 00 00 00 18 "
                       "00 00 00 03 61 62 00 00 00 00 00 07 00 00 00 00 3f e0 00 00 00 00 00 00 ff ff ff ff"));
}

// An abstract interface, a value type supporting it and the interface's
// proxy, written by hand as generated code implements them.
class Shape : public virtual CORBA::AbstractBase {
public:
    static Shape* _yv_from_object(CORBA::Object_ptr obj);
};
class Square : public virtual Shape, public StringBox {
public:
    CORBA::ValueBase* _yv_value() override { return this; }
};
class ShapeProxy : public virtual Shape, public virtual CORBA::Object {
public:
    explicit ShapeProxy(CORBA::Object_ptr target) : CORBA::Object(target) {}
    CORBA::Object_ptr _yv_object() override { return this; }
};
Shape* Shape::_yv_from_object(CORBA::Object_ptr obj) { return new ShapeProxy(obj); }

TEST(ValueCdr, AbstractInterfacesAreAnObjectOrAValue)
{
    Factories factories{{"IDL:Test/StringBox:1.0", new Factory<Square>}};
    Square* square = new Square;
    square->text = CORBA::string_dup("four");
    CORBA::AbstractBase_var as_value = static_cast<Shape*>(square);
    CORBA::Object_var target = orb()->string_to_object("corbaloc::127.0.0.1:9/shape");
    CORBA::AbstractBase_var as_object = static_cast<Shape*>(new ShapeProxy(target));
    const CORBA::String_var ior = orb()->object_to_string(target);

    // Counting goes to what it is.
    CORBA::AbstractBase::_duplicate(as_value.in());
    EXPECT_EQ(square->_refcount_value(), 2u);
    CORBA::release(as_value.in());
    EXPECT_EQ(square->_refcount_value(), 1u);
    CORBA::ValueBase_var v = as_value->_to_value();
    EXPECT_EQ(v.in(), static_cast<CORBA::ValueBase*>(square));
    EXPECT_EQ(as_value->_to_object(), nullptr);
    CORBA::Object_var o = as_object->_to_object();
    EXPECT_NE(o.in(), nullptr);
    EXPECT_EQ(as_object->_to_value(), nullptr);
    EXPECT_TRUE(CORBA::is_nil(CORBA::AbstractBase::_nil()));

    for (bool little : {false, true}) {
        SCOPED_TRACE(little ? "little-endian" : "big-endian");
        YV_CDR::OutputStream out(little);
        YV_Cxx::write_abstract(out, as_value.in());
        YV_Cxx::write_abstract(out, as_object.in());
        YV_Cxx::write_abstract(out, nullptr);
        const Octets start(out.data(), out.data() + 8);
        EXPECT_EQ(start, little ? from_hex("00 00 00 00 02 ff ff 7f") : from_hex("00 00 00 00 7f ff ff 02"));

        YV_CDR::InputStream in(out.data(), out.size(), little);
        CORBA::AbstractBase_var value_back = YV_Cxx::read_abstract_as<Shape>(in);
        CORBA::AbstractBase_var object_back = YV_Cxx::read_abstract_as<Shape>(in);
        CORBA::AbstractBase_var nil_back = YV_Cxx::read_abstract_as<Shape>(in);
        EXPECT_EQ(in.remaining(), 0u);
        Square* s = dynamic_cast<Square*>(value_back.in());
        ASSERT_NE(s, nullptr);
        EXPECT_STREQ(s->text.in(), "four");
        ASSERT_NE(dynamic_cast<ShapeProxy*>(object_back.in()), nullptr);
        CORBA::Object_var back = object_back->_to_object();
        const CORBA::String_var back_ior = orb()->object_to_string(back);
        EXPECT_STREQ(back_ior.in(), ior.in());
        EXPECT_TRUE(CORBA::is_nil(nil_back.in()));
    }
    // A value of a class that does not support the interface.
    YV_CDR::OutputStream out;
    out.write_boolean(false);
    Node_var node = new Node(1);
    YV_Cxx::Marshal<Node_var>::write(out, node);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    Factories nodes{{"IDL:Test/Node:1.0", new Factory<Node>}};
    EXPECT_THROW(YV_Cxx::read_abstract_as<Shape>(in), CORBA::MARSHAL);
}

// A value whose last member is a nested value ends with one end tag for
// both (omniORB's reader stops the process on two).
TEST(ValueCdr, OneEndTagClosesAValueAndTheValueLastInIt)
{
    class Ending : public Base {
    public:
        const char* const* _yv_type_ids(CORBA::ULong& count) const override
        {
            static const char* const ids[] = {"IDL:Test/Ending:1.0", "IDL:Test/Base:1.0"};
            count = 2;
            return ids;
        }
        CORBA::Boolean _yv_is_chunked() const override { return true; }
        void _yv_marshal_state(YV_CDR::OutputStream& out) const override
        {
            Base::_yv_marshal_state(out);
            YV_Cxx::Marshal<Node_var>::write(out, last);
        }
        Node_var last;
    };
    YV_Cxx::Value_var<Ending> e = new Ending;
    e->name = "e";
    e->last = new Node(2);
    e->last->left = new Node(3);
    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<YV_Cxx::Value_var<Ending>>::write(out, e);
    // Node 3 ends (-3); node 2's null right child in a chunk; then node 2
    // and the value holding it end together: -1 alone.
    EXPECT_EQ(Octets(out.data() + out.size() - 16, out.data() + out.size()),
              from_hex("ff ff ff fd 00 00 00 04 00 00 00 00 ff ff ff ff"));
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
    Factories factories{{"IDL:Test/Node:1.0", new Factory<Node>},
                        {"IDL:Test/Base:1.0", new Factory<Base>},
                        {"IDL:Test/Counted:1.0", new Factory<Counted>}};
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
        {"chunk ending inside a primitive",
         Bytes().l(0x7fffff0e).l(2).s("IDL:Test/Counted:1.0").s("IDL:Test/Base:1.0").l(10).s("abc").l(0).l(2).l(7).l(12).l(0).l(0).l(0xffffffff).o},
        {"chunk of size 0",
         Bytes().l(0x7fffff0e).l(2).s("IDL:Test/Counted:1.0").s("IDL:Test/Base:1.0").l(8).s("abc").l(0).l(16).l(7).l(0).l(0).l(0).l(0xffffffff).o},
        {"end tag where state goes on",
         Bytes().l(0x7fffff0e).l(2).s("IDL:Test/Counted:1.0").s("IDL:Test/Base:1.0").l(8).s("abc").l(0xffffffff).o},
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
