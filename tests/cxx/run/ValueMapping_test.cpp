// The generated classes of Values.idl: OBV_ classes, default factories,
// copies, and values passed through operations on every dispatch path
// (the colocated one, the request path with its copies, and GIOP messages
// through the value encoding).
#include "ValuesS.hh"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

CORBA::ORB_ptr orb()
{
    int argc = 0;
    return CORBA::ORB_init(argc, nullptr);
}

Obv::Node* node(CORBA::Long label, Obv::Node* left = nullptr, Obv::Node* right = nullptr)
{
    return new OBV_Obv::Node(label, left, right);
}

// Cyclic graphs keep themselves alive: a test cuts what it made and got.
void cut(Obv::Node* n)
{
    if (n != nullptr) {
        n->left(nullptr);
        n->right(nullptr);
    }
}

// An abstract value's concrete class and the factory a program registers.
class SquareImpl : public virtual OBV_Obv::Square {
public:
    SquareImpl() = default;
    explicit SquareImpl(CORBA::Double s) : OBV_Obv::Square(s) {}
    CORBA::Double area() override { return side() * side(); }
};

class SquareFactory : public virtual Obv::Square_init {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new SquareImpl; }
    Obv::Square* with_side(CORBA::Double side) override { return new SquareImpl(side); }
};

// A value that supports an interface, served as the interface's object.
// Its one reference count serves both as a value and as a servant.
class CountingImpl : public virtual POA_Obv::CountingValue, public virtual OBV_Obv::CountingValue {
public:
    explicit CountingImpl(CORBA::Long start) : OBV_Obv::CountingValue(start) {}
    CORBA::Long count() override { return start() + 1; }
    void _add_ref() override { CORBA::DefaultValueRefCountBase::_add_ref(); }
    void _remove_ref() override { CORBA::DefaultValueRefCountBase::_remove_ref(); }
    CORBA::ULong _refcount_value() const override { return CORBA::DefaultValueRefCountBase::_refcount_value(); }
};

class CountingFactory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new CountingImpl(0); }
};

// A custom value: its state goes as the program writes it.
class TaggedImpl : public virtual OBV_Obv::Tagged {
public:
    void marshal(CORBA::DataOutputStream* os) override
    {
        os->write_long(tag());
        os->write_string(text());
        os->write_Value(next.in());
    }
    void unmarshal(CORBA::DataInputStream* is) override
    {
        tag(is->read_long());
        CORBA::String_var s = is->read_string();
        text(s.in());
        next = is->read_Value();
    }
    // Another value written inside this one's chunks.
    CORBA::ValueBase_var next;
};

class TaggedFactory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new TaggedImpl; }
};

// The two kinds of a Named: a value and an object.
class NamedValueImpl : public virtual OBV_Obv::NamedValue {
public:
    NamedValueImpl() = default;
    explicit NamedValueImpl(const char* title) : OBV_Obv::NamedValue(title) {}
    char* name() override { return CORBA::string_dup(title()); }
};

class NamedValueFactory : public CORBA::ValueFactoryBase {
public:
    CORBA::ValueBase* create_for_unmarshal() override { return new NamedValueImpl; }
};

class NamedObjectServant : public virtual POA_Obv::NamedObject {
public:
    char* name() override { return CORBA::string_dup("object"); }
};

class GraphsServant : public virtual POA_Obv::Graphs {
public:
    Obv::Node* echo(Obv::Node* n) override { return keep_and_return(n); }

    Obv::Node* swap(Obv::Node* a, Obv::Node*& b, Obv::Node_out c) override
    {
        c = keep_and_return(b);
        CORBA::remove_ref(b);
        b = node(a ? a->label() * 10 : -1);
        return keep_and_return(a);
    }

    Obv::Base* pass_base(Obv::Base* b) override
    {
        received_base = Obv::Derived::_downcast(b) ? "Derived" : "Base";
        CORBA::add_ref(b);
        return b;
    }

    Obv::StringBox* boxes(Obv::StringBox* s, Obv::LongBox*& l, Obv::PairBox_out p, Obv::LongsBox* q) override
    {
        if (l != nullptr)
            l->_value(l->_value() + (q ? static_cast<CORBA::Long>(q->_value().length()) : 0));
        Obv::Pair pair;
        pair.a = 7;
        pair.b = s ? s->_value() : "none";
        p = new Obv::PairBox(pair);
        return s ? new Obv::StringBox((std::string(s->_value()) + "!").c_str()) : nullptr;
    }

    Obv::Carrier* carry(const Obv::Carrier& c) override
    {
        keep(c.node.in());
        return new Obv::Carrier(c);
    }

    Obv::Nodes* many(const Obv::Nodes& n) override
    {
        for (CORBA::ULong i = 0; i < n.length(); ++i)
            keep(n[i].in());
        return new Obv::Nodes(n);
    }

    Obv::Record* record(Obv::Record* r) override
    {
        CORBA::add_ref(r);
        return r;
    }

    Obv::Shape* bigger(Obv::Shape* a, Obv::Shape* b) override
    {
        Obv::Shape* big = a->area() >= b->area() ? a : b;
        CORBA::add_ref(big);
        return big;
    }

    CORBA::ValueBase* anything(CORBA::ValueBase* v) override
    {
        if (Obv::Node* n = Obv::Node::_downcast(v))
            keep(n);
        CORBA::add_ref(v);
        return v;
    }

    void fail(Obv::Node* n) override { throw Obv::Failed(keep(n)); }

    // Says what arrived and sends it back.
    Obv::Named_ptr pass_named(Obv::Named_ptr n, CORBA::String_out seen) override
    {
        std::string kind = "nil";
        if (!CORBA::is_nil(n)) {
            CORBA::Object_var object = n->_to_object();
            kind = CORBA::is_nil(object.in()) ? "value " : "object ";
            kind += CORBA::String_var(n->name()).in();
        }
        seen = CORBA::string_dup(kind.c_str());
        return Obv::Named::_duplicate(n);
    }

    Obv::Node* current() override { return keep_and_return(m_current.in()); }
    void current(Obv::Node* n) override
    {
        CORBA::add_ref(keep(n));
        m_current = n;
    }

    // Every node seen is kept, to cut cycles at the end.
    Obv::Node* keep(Obv::Node* n)
    {
        CORBA::add_ref(n);
        seen.push_back(Obv::Node_var(n));
        return n;
    }
    Obv::Node* keep_and_return(Obv::Node* n)
    {
        CORBA::add_ref(keep(n));
        return n;
    }

    std::vector<Obv::Node_var> seen;
    std::string received_base;

private:
    Obv::Node_var m_current;
};

TEST(ValueClasses, ObvClassesAndTheirCopies)
{
    Obv::Node_var shared = node(2);
    Obv::Node_var root = node(1, shared.in(), shared.in());
    root->left()->right(root.in()); // a cycle through the shared child
    Obv::Node_var copy = Obv::Node::_downcast(root->_copy_value());
    ASSERT_NE(copy.in(), nullptr);
    EXPECT_NE(copy.in(), root.in());
    EXPECT_EQ(copy->label(), 1);
    ASSERT_NE(copy->left(), nullptr);
    EXPECT_NE(copy->left(), shared.in());
    EXPECT_EQ(copy->left(), copy->right());
    EXPECT_EQ(copy->left()->right(), copy.in());
    cut(copy->left());
    cut(shared.in());

    Obv::Record_var r = new OBV_Obv::Record;
    r->all().length(1);
    r->pair().a = 5;
    r->grid()[1] = 9;
    Obv::StringBox_var note = new Obv::StringBox("hi");
    r->note(note.in());
    Obv::Record_var rc = Obv::Record::_downcast(r->_copy_value());
    ASSERT_NE(rc.in(), nullptr);
    EXPECT_EQ(rc->all().length(), 1u);
    EXPECT_EQ(rc->pair().a, 5);
    EXPECT_EQ(rc->grid()[1], 9);
    EXPECT_STREQ(rc->note()->_value(), "hi");

    Obv::Derived_var d = new OBV_Obv::Derived("d", nullptr, 2.5);
    EXPECT_STREQ(d->name(), "d");
    CORBA::ULong count = 0;
    const char* const* ids = d->_yv_type_ids(count);
    ASSERT_EQ(count, 2u);
    EXPECT_STREQ(ids[1], "IDL:Obv/Base:1.0");
    EXPECT_TRUE(d->_yv_is_chunked());
}

// A truncatable value is written with a chunk per level of inheritance,
// as omniORB writes it, and reads back from that.
TEST(ValueClasses, ChunkPerLevelOfInheritance)
{
    Obv::Derived_var d = new OBV_Obv::Derived("ab", nullptr, 1.5);
    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<Obv::Derived_var>::write(out, d.in());
    YV_CDR::InputStream in(out.data(), out.size(), false);
    EXPECT_EQ(in.read_ulong(), 0x7fffff0eu); // id list, chunked
    EXPECT_EQ(in.read_ulong(), 2u);
    EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "IDL:Obv/Derived:1.0");
    EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "IDL:Obv/Base:1.0");
    EXPECT_EQ(in.read_long(), 7); // Base's chunk: the string
    EXPECT_STREQ(CORBA::String_var(in.read_string()).in(), "ab");
    EXPECT_EQ(in.read_long(), 16); // Derived's: null tag, padding, double
    EXPECT_EQ(in.read_ulong(), 0u);
    EXPECT_EQ(in.read_double(), 1.5);
    EXPECT_EQ(in.read_long(), -1);
    EXPECT_EQ(in.remaining(), 0u);

    YV_CDR::InputStream again(out.data(), out.size(), false);
    Obv::Derived_var back;
    YV_Cxx::Marshal<Obv::Derived_var>::read(again, back);
    ASSERT_NE(back.in(), nullptr);
    EXPECT_STREQ(back->name(), "ab");
    EXPECT_EQ(back->weight(), 1.5);
}

TEST(ValueClasses, BoxAccessors)
{
    Obv::StringBox_var s = new Obv::StringBox(CORBA::string_dup("abc")); // adopted
    (*s)[1] = 'x';
    EXPECT_STREQ(s->_boxed_in(), "axc");
    CORBA::string_free(s->_boxed_inout());
    s->_boxed_inout() = CORBA::string_dup("inout");
    EXPECT_STREQ(s->_value(), "inout");
    CORBA::String_out out = s->_boxed_out();
    out = CORBA::string_dup("out");
    EXPECT_STREQ(s->_value(), "out");
    EXPECT_EQ(static_cast<const Obv::StringBox&>(*s)[0], 'o');

    Obv::WordBox_var w = new Obv::WordBox(L"wide");
    EXPECT_EQ((*w)[1], L'i');

    Obv::PairBox_var p = new Obv::PairBox;
    p->a(5);
    p->b("text");
    EXPECT_EQ(p->_value().a, 5);
    EXPECT_STREQ(p->b(), "text");
    p->_boxed_inout().a = 6;
    EXPECT_EQ(p->a(), 6);

    Obv::LongsBox_var q = new Obv::LongsBox;
    q->length(2);
    (*q)[1] = 9;
    EXPECT_EQ(q->_boxed_in()[1], 9);
    EXPECT_EQ(q->length(), 2u);

    Obv::LongBox_var l = new Obv::LongBox(1);
    l->_boxed_inout() = 2;
    EXPECT_EQ(l->_boxed_in(), 2);

    // A union box selects and reads branches as the union does.
    Obv::ChoiceBox_var u = new Obv::ChoiceBox;
    u->text("chosen");
    EXPECT_EQ(u->_d(), 2);
    EXPECT_STREQ(u->text(), "chosen");
    u->number(12);
    EXPECT_EQ(u->_d(), 1);
    EXPECT_EQ(u->_value().number(), 12);
    Obv::Pair pair;
    pair.a = 3;
    u->pair(pair);
    u->pair().b = CORBA::string_dup("modified");
    EXPECT_EQ(u->_d(), 3);
    EXPECT_STREQ(u->_boxed_in().pair().b, "modified");
    u->_default();
    EXPECT_NE(u->_d(), 1);
    EXPECT_NE(u->_d(), 2);
    EXPECT_NE(u->_d(), 3);
    u->_d(3);
    EXPECT_EQ(u->pair().a, 3);

    const CORBA::Long cells[3] = {1, 2, 3};
    Obv::GridBox_var g = new Obv::GridBox(cells);
    g->_boxed_inout()[2] = 4;
    EXPECT_EQ(g->_boxed_in()[2], 4);
    Obv::GridBox_var gc = Obv::GridBox::_downcast(g->_copy_value());
    EXPECT_EQ(gc->_value()[0], 1);
}

TEST(ValueClasses, DefaultFactoriesAreRegisteredAtStart)
{
    const struct {
        const char* id;
        bool registered;
    } cases[] = {
        {"IDL:Obv/Node:1.0", true},    {"IDL:Obv/Derived:1.0", true}, {"IDL:Obv/Record:1.0", true},
        {"IDL:Obv/Square:1.0", false}, // has an initializer: the program's factory
        {"IDL:Obv/Shape:1.0", false},  // abstract
    };
    for (const auto& c : cases) {
        CORBA::ValueFactoryBase_var f = orb()->lookup_value_factory(c.id);
        EXPECT_EQ(f.in() != nullptr, c.registered) << c.id;
        if (c.registered) {
            EXPECT_EQ(Obv::Node_init::_downcast(f.in()) != nullptr, std::string(c.id) == "IDL:Obv/Node:1.0");
        }
    }
}

// An abstract interface is a boolean (true: an object reference follows),
// then the reference or the value; in an any it keeps its type code.
TEST(AbstractInterfaces, EncodingAndAny)
{
    CORBA::ValueFactoryBase_var factory = new NamedValueFactory;
    CORBA::ValueFactoryBase_var previous = orb()->register_value_factory("IDL:Obv/NamedValue:1.0", factory.in());
    NamedObjectServant servant;
    Obv::NamedObject_var object = servant._this();
    Obv::NamedValue_var value = new NamedValueImpl("v");
    // An interface that is an object and an abstract interface is released
    // and tested as the object.
    CORBA::release(Obv::NamedObject::_duplicate(object.in()));
    EXPECT_FALSE(CORBA::is_nil(object.in()));
    const struct {
        const char* name;
        Obv::Named_ptr sent;
        bool object;
    } cases[] = {{"object", object.in(), true}, {"value", value.in(), false}, {"nil", nullptr, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        YV_CDR::OutputStream out(false);
        YV_Cxx::Marshal<Obv::Named_var>::write(out, c.sent);
        YV_CDR::InputStream flag(out.data(), out.size(), false);
        EXPECT_EQ(flag.read_boolean(), c.object);
        YV_CDR::InputStream in(out.data(), out.size(), false);
        Obv::Named_var back;
        YV_Cxx::Marshal<Obv::Named_var>::read(in, back);
        EXPECT_EQ(in.remaining(), 0u);
        EXPECT_EQ(CORBA::is_nil(back.in()), CORBA::is_nil(c.sent));
        if (!CORBA::is_nil(back.in())) {
            EXPECT_STREQ(CORBA::String_var(back->name()).in(), c.object ? "object" : "v");
        }

        CORBA::Any any;
        any <<= c.sent;
        EXPECT_EQ(any.type()->kind(), CORBA::tk_abstract_interface);
        Obv::Named_ptr got = nullptr;
        ASSERT_TRUE(any >>= got);
        EXPECT_EQ(got, c.sent);
    }
    orb()->unregister_value_factory("IDL:Obv/NamedValue:1.0");
    PortableServer::POA_var poa = servant._default_POA();
    PortableServer::ObjectId_var id = poa->servant_to_id(&servant);
    poa->deactivate_object(id.in());
}

// A custom value is chunked and carries type information; what marshal()
// writes, a nested value included, unmarshal() reads back.
TEST(CustomValues, StateAsTheProgramWritesIt)
{
    CORBA::ValueFactoryBase_var factory = new TaggedFactory;
    CORBA::ValueFactoryBase_var previous = orb()->register_value_factory("IDL:Obv/Tagged:1.0", factory.in());
    Obv::Tagged_var sent = new TaggedImpl;
    sent->tag(-7);
    sent->text("custom");
    dynamic_cast<TaggedImpl*>(sent.in())->next = node(5);

    YV_CDR::OutputStream out(false);
    YV_Cxx::Marshal<Obv::Tagged_var>::write(out, sent.in());
    YV_CDR::InputStream head(out.data(), out.size(), false);
    EXPECT_EQ(head.read_ulong(), 0x7fffff0au); // one id, chunked
    EXPECT_STREQ(CORBA::String_var(head.read_string()).in(), "IDL:Obv/Tagged:1.0");

    YV_CDR::InputStream in(out.data(), out.size(), false);
    Obv::Tagged_var back;
    YV_Cxx::Marshal<Obv::Tagged_var>::read(in, back);
    EXPECT_EQ(in.remaining(), 0u);
    TaggedImpl* impl = dynamic_cast<TaggedImpl*>(back.in());
    ASSERT_NE(impl, nullptr);
    EXPECT_EQ(impl->tag(), -7);
    EXPECT_STREQ(impl->text(), "custom");
    Obv::Node* next = Obv::Node::_downcast(impl->next.in());
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->label(), 5);

    // Over the wire, where it arrives as a ValueBase.
    YV_Runtime::set_dispatch_path(YV_Runtime::wire);
    {
        GraphsServant servant;
        Obv::Graphs_var graphs = servant._this();
        CORBA::ValueBase_var echoed = graphs->anything(sent.in());
        TaggedImpl* wired = dynamic_cast<TaggedImpl*>(echoed.in());
        ASSERT_NE(wired, nullptr);
        EXPECT_STREQ(wired->text(), "custom");
        PortableServer::POA_var poa = servant._default_POA();
        PortableServer::ObjectId_var id = poa->servant_to_id(&servant);
        poa->deactivate_object(id.in());
    }
    YV_Runtime::set_dispatch_path(YV_Runtime::colocated);
    orb()->unregister_value_factory("IDL:Obv/Tagged:1.0");
}

class ValuePathsTest : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(GetParam());
        graphs = servant._this();
        CORBA::ValueFactoryBase_var previous = orb()->register_value_factory("IDL:Obv/Square:1.0", squares.in());
    }
    void TearDown() override
    {
        orb()->unregister_value_factory("IDL:Obv/Square:1.0");
        for (auto& n : servant.seen)
            cut(n.in());
        for (auto& n : made)
            cut(n.in());
        YV_Runtime::set_dispatch_path(YV_Runtime::colocated);
    }
    // Keeps a node for the cut at the end.
    Obv::Node* made_here(Obv::Node* n)
    {
        CORBA::add_ref(n);
        made.push_back(Obv::Node_var(n));
        return n;
    }

    GraphsServant servant;
    Obv::Graphs_var graphs;
    CORBA::ValueFactoryBase_var squares = new SquareFactory;
    std::vector<Obv::Node_var> made;
};

TEST_P(ValuePathsTest, GraphsKeepTheirShape)
{
    struct Case {
        const char* name;
        std::function<Obv::Node*()> build;
        std::function<void(Obv::Node*)> check;
    };
    const Case cases[] = {
        {"null", [] { return nullptr; }, [](Obv::Node* n) { EXPECT_EQ(n, nullptr); }},
        {"single", [] { return node(7); }, [](Obv::Node* n) {
             ASSERT_NE(n, nullptr);
             EXPECT_EQ(n->label(), 7);
             EXPECT_EQ(n->left(), nullptr);
         }},
        {"shared child",
         [] {
             Obv::Node_var child = node(2);
             return node(1, child.in(), child.in());
         },
         [](Obv::Node* n) {
             ASSERT_NE(n->left(), nullptr);
             EXPECT_EQ(n->left(), n->right());
             EXPECT_EQ(n->left()->label(), 2);
         }},
        {"cycle",
         [] {
             Obv::Node* root = node(1);
             Obv::Node_var child = node(2, root);
             root->right(child.in());
             return root;
         },
         [](Obv::Node* n) {
             ASSERT_NE(n->right(), nullptr);
             EXPECT_EQ(n->right()->left(), n);
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Obv::Node_var sent = c.build();
        if (sent.in())
            made_here(sent.in());
        Obv::Node_var back = graphs->echo(sent.in());
        if (back.in())
            made_here(back.in());
        c.check(back.in());
    }
}

TEST_P(ValuePathsTest, EveryDirectionAndPlace)
{
    Obv::Node_var a = made_here(node(3));
    Obv::Node_var b = made_here(node(4));
    Obv::Node_var c;
    Obv::Node_var r = graphs->swap(a.in(), b.inout(), c.out());
    EXPECT_EQ(r->label(), 3);
    EXPECT_EQ(b->label(), 30);
    ASSERT_NE(c.in(), nullptr);
    EXPECT_EQ(c->label(), 4);

    // A value shared by two members of a structure and by a sequence's
    // elements stays one value.
    Obv::Node_var one = made_here(node(5));
    Obv::Carrier carrier;
    carrier.node = Obv::Node::_downcast(one.in());
    CORBA::add_ref(one.in());
    carrier.box = new Obv::StringBox("boxed");
    Obv::Carrier_var carried = graphs->carry(carrier);
    EXPECT_EQ(carried->node->label(), 5);
    EXPECT_STREQ(carried->box->_value(), "boxed");

    Obv::Nodes nodes;
    nodes.length(3);
    nodes[0] = Obv::Node::_downcast(one.in());
    CORBA::add_ref(one.in());
    nodes[1] = nodes[0];
    Obv::Nodes_var many = graphs->many(nodes);
    ASSERT_EQ(many->length(), 3u);
    EXPECT_EQ(many[0].in(), many[1].in());
    EXPECT_EQ(many[2].in(), nullptr);

    Obv::Node_var at = made_here(node(9));
    try {
        graphs->fail(at.in());
        ADD_FAILURE() << "no exception";
    } catch (const Obv::Failed& e) {
        ASSERT_NE(e.at.in(), nullptr);
        EXPECT_EQ(e.at->label(), 9);
    }

    Obv::Node_var current = made_here(node(11));
    graphs->current(current.in());
    Obv::Node_var got = graphs->current();
    EXPECT_EQ(got->label(), 11);

    Obv::Node_var as_base = made_here(node(12));
    CORBA::ValueBase_var any = graphs->anything(as_base.in());
    Obv::Node* back = Obv::Node::_downcast(any.in());
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->label(), 12);
}

TEST_P(ValuePathsTest, BoxesRecordsAndAbstractValues)
{
    const CORBA::Long cells[3] = {1, 2, 3};
    Obv::StringBox_var s = new Obv::StringBox("text");
    Obv::LongBox_var l = new Obv::LongBox(40);
    Obv::PairBox_var p;
    Obv::Longs two;
    two.length(2);
    Obv::LongsBox_var q = new Obv::LongsBox(two);
    Obv::StringBox_var r = graphs->boxes(s.in(), l.inout(), p.out(), q.in());
    EXPECT_STREQ(r->_value(), "text!");
    EXPECT_EQ(l->_value(), 42);
    EXPECT_EQ(p->_value().a, 7);
    EXPECT_STREQ(p->_value().b, "text");

    CORBA::ValueBase_var grid_back = graphs->anything(Obv::GridBox_var(new Obv::GridBox(cells)).in());
    ASSERT_NE(Obv::GridBox::_downcast(grid_back.in()), nullptr);
    EXPECT_EQ(Obv::GridBox::_downcast(grid_back.in())->_value()[2], 3);
    CORBA::ValueBase_var word_back = graphs->anything(Obv::WordBox_var(new Obv::WordBox(L"word")).in());
    ASSERT_NE(Obv::WordBox::_downcast(word_back.in()), nullptr);
    EXPECT_EQ(std::wstring(Obv::WordBox::_downcast(word_back.in())->_value()), L"word");

    Obv::LongBox_var none;
    Obv::StringBox_var null_result = graphs->boxes(nullptr, none.inout(), p.out(), nullptr);
    EXPECT_EQ(null_result.in(), nullptr);
    EXPECT_EQ(none.in(), nullptr);
    EXPECT_STREQ(p->_value().b, "none");

    Obv::Node_var root = made_here(node(1));
    Obv::Record_var rec = new OBV_Obv::Record;
    rec->all().length(2);
    rec->all()[0] = Obv::Node::_downcast(root.in());
    CORBA::add_ref(root.in());
    rec->pair().b = CORBA::string_dup("pair");
    rec->grid()[0] = 6;
    Obv::Record_var rec_back = graphs->record(rec.in());
    ASSERT_NE(rec_back.in(), nullptr);
    EXPECT_STREQ(rec_back->pair().b, "pair");
    EXPECT_EQ(rec_back->grid()[0], 6);
    ASSERT_EQ(rec_back->all().length(), 2u);
    EXPECT_EQ(rec_back->all()[0]->label(), 1);
    EXPECT_EQ(rec_back->note(), nullptr);

    Obv::Shape_var small = new SquareImpl(2);
    Obv::Shape_var big = new SquareImpl(3);
    Obv::Shape_var bigger = graphs->bigger(small.in(), big.in());
    ASSERT_NE(bigger.in(), nullptr);
    EXPECT_EQ(bigger->area(), 9.0);
}

TEST_P(ValuePathsTest, AValueServesTheInterfaceItSupports)
{
    CountingImpl* impl = new CountingImpl(41);
    {
        Obv::Counter_var counter = impl->_this();
        EXPECT_EQ(counter->count(), 42);
        // The same object travels as a value too; a value type with
        // operations is made by the program's factory.
        CORBA::ValueFactoryBase_var factory = new CountingFactory;
        CORBA::ValueFactoryBase_var previous = orb()->register_value_factory("IDL:Obv/CountingValue:1.0", factory.in());
        CORBA::ValueBase_var back = graphs->anything(impl);
        orb()->unregister_value_factory("IDL:Obv/CountingValue:1.0");
        Obv::CountingValue* value = Obv::CountingValue::_downcast(back.in());
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(value->start(), 41);
    }
    PortableServer::POA_var poa = impl->_default_POA();
    PortableServer::ObjectId_var id = poa->servant_to_id(impl);
    poa->deactivate_object(id.in());
    impl->_remove_ref();
}

TEST_P(ValuePathsTest, AbstractInterfacesCarryObjectsAndValues)
{
    CORBA::ValueFactoryBase_var factory = new NamedValueFactory;
    CORBA::ValueFactoryBase_var previous = orb()->register_value_factory("IDL:Obv/NamedValue:1.0", factory.in());
    NamedObjectServant object_servant;
    Obv::NamedObject_var object = object_servant._this();
    Obv::NamedValue_var value = new NamedValueImpl("value");

    struct Case {
        const char* name;
        Obv::Named_ptr sent;
        const char* seen;
        bool object;
    };
    const Case cases[] = {
        {"object", object.in(), "object object", true},
        {"value", value.in(), "value value", false},
        {"nil", Obv::Named::_nil(), "nil", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CORBA::String_var seen;
        Obv::Named_var back = graphs->pass_named(c.sent, seen.out());
        EXPECT_STREQ(seen.in(), c.seen);
        if (CORBA::is_nil(c.sent)) {
            EXPECT_TRUE(CORBA::is_nil(back.in()));
            continue;
        }
        ASSERT_FALSE(CORBA::is_nil(back.in()));
        CORBA::Object_var as_object = back->_to_object();
        CORBA::ValueBase_var as_value = back->_to_value();
        EXPECT_EQ(!CORBA::is_nil(as_object.in()), c.object);
        EXPECT_EQ(as_value.in() != nullptr, !c.object);
        EXPECT_STREQ(CORBA::String_var(back->name()).in(), c.object ? "object" : "value");
        if (c.object) {
            Obv::NamedObject_var narrowed = Obv::NamedObject::_narrow(as_object.in());
            EXPECT_FALSE(CORBA::is_nil(narrowed.in()));
        }
    }
    // Narrowing an AbstractBase to the interface keeps what it is.
    CORBA::AbstractBase_ptr base = value.in();
    Obv::Named_var named = Obv::Named::_narrow(base);
    EXPECT_EQ(named.in(), static_cast<Obv::Named_ptr>(value.in()));
    orb()->unregister_value_factory("IDL:Obv/NamedValue:1.0");
    PortableServer::POA_var poa = object_servant._default_POA();
    PortableServer::ObjectId_var id = poa->servant_to_id(&object_servant);
    poa->deactivate_object(id.in());
}

INSTANTIATE_TEST_SUITE_P(AllPaths, ValuePathsTest,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based, YV_Runtime::wire));

// Over the wire a receiver without the derived type's factory gets the
// truncatable value as its base, and a value of no known type is MARSHAL.
TEST(ValueWire, TruncationAndMissingFactories)
{
    YV_Runtime::set_dispatch_path(YV_Runtime::wire);
    GraphsServant servant;
    Obv::Graphs_var graphs = servant._this();

    Obv::Base_var d = new OBV_Obv::Derived("derived", nullptr, 1.5);
    Obv::Base_var back = graphs->pass_base(d.in());
    EXPECT_EQ(servant.received_base, "Derived");
    EXPECT_NE(Obv::Derived::_downcast(back.in()), nullptr);

    orb()->unregister_value_factory("IDL:Obv/Derived:1.0");
    back = graphs->pass_base(d.in());
    EXPECT_EQ(servant.received_base, "Base");
    ASSERT_NE(back.in(), nullptr);
    EXPECT_STREQ(back->name(), "derived");
    EXPECT_EQ(Obv::Derived::_downcast(back.in()), nullptr);

    // Leveled is not truncatable: without its factory it cannot be read.
    Obv::Base_var leveled = new OBV_Obv::Leveled("leveled", 3);
    CORBA::ValueFactoryBase_var leveled_factory = orb()->lookup_value_factory("IDL:Obv/Leveled:1.0");
    orb()->unregister_value_factory("IDL:Obv/Leveled:1.0");
    try {
        graphs->pass_base(leveled.in());
        ADD_FAILURE() << "no exception";
    } catch (const CORBA::MARSHAL& e) {
        EXPECT_EQ(e.minor(), YV_Cxx::minor_no_value_factory);
    }
    CORBA::ValueFactoryBase_var none = orb()->register_value_factory("IDL:Obv/Leveled:1.0", leveled_factory.in());
    CORBA::ValueFactoryBase_var derived_factory = new Obv::Derived_init;
    none = orb()->register_value_factory("IDL:Obv/Derived:1.0", derived_factory.in());
    back = graphs->pass_base(leveled.in());
    EXPECT_EQ(Obv::Leveled::_downcast(back.in())->level(), 3);
    YV_Runtime::set_dispatch_path(YV_Runtime::colocated);
}

} // namespace
