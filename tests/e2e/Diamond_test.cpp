// The generated client and skeleton of Diamond.idl served in process and
// called through object references: every operation and attribute of the
// diamond (Bottom : Left, Right; Left : Top; Right : Top) with its in,
// inout, out and result values, through references of every level, on both
// dispatch paths, by a servant derived from the skeleton and by a TIE
// servant; type checks along the inheritance chain; lookups of names the
// tables do and do not hold; exceptions raised by an inherited operation.
// The same program runs against skeletons generated with differently sized
// dispatch tables.
#include "DiamondS.hh"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>

namespace {

// What the servant does, written once and served both by a skeleton-derived
// servant and through a TIE.
class Shape {
public:
    CORBA::Long calls = 0;
    CORBA::String_var name = "shape";
    Shapes::Point point = {1, 2};
    Shapes::Label label;

    // Refused for negative x, BAD_PARAM for 0; else s becomes "s:x", p (x, 2x)
    // and the result 3x.
    CORBA::Long top_op(CORBA::Long x, char*& s, Shapes::Point& p)
    {
        ++calls;
        if (x < 0)
            throw Shapes::Refused("negative", x);
        if (x == 0)
            throw CORBA::BAD_PARAM(5, CORBA::COMPLETED_NO);
        const std::string joined = std::string(s) + ":" + std::to_string(x);
        CORBA::string_free(s);
        s = CORBA::string_dup(joined.c_str());
        p.x = x;
        p.y = 2 * x;
        return 3 * x;
    }
    char* top_name() { return CORBA::string_dup(name.in()); }
    void top_name(const char* v) { name = v; }
    CORBA::Long top_calls() { return calls; }

    // The result is l with "+" appended and its marks reversed; n grows by
    // the sum of the marks; s is "left:" and l's text. A text "refuse"
    // raises Refused, which left_op does not declare.
    Shapes::Label* left_op(const Shapes::Label& l, CORBA::Long& n, CORBA::String_out s)
    {
        if (std::string(l.text.in()) == "refuse")
            throw Shapes::Refused("undeclared", 1);
        Shapes::Label* r = new Shapes::Label;
        r->text = (std::string(l.text.in()) + "+").c_str();
        r->marks.length(l.marks.length());
        for (CORBA::ULong i = 0; i < l.marks.length(); ++i) {
            r->marks[i] = l.marks[l.marks.length() - 1 - i];
            n += l.marks[i];
        }
        s = CORBA::string_dup(("left:" + std::string(l.text.in())).c_str());
        return r;
    }
    Shapes::Point left_point() { return point; }
    void left_point(const Shapes::Point& v) { point = v; }

    // p's coordinates swap; l holds s and the coordinates as they came;
    // the result is "right:" and s.
    char* right_op(const char* s, Shapes::Point& p, Shapes::Label_out l)
    {
        l = new Shapes::Label;
        l->text = s;
        l->marks.length(2);
        l->marks[0] = p.x;
        l->marks[1] = p.y;
        std::swap(p.x, p.y);
        return CORBA::string_dup(("right:" + std::string(s)).c_str());
    }
    CORBA::Double right_ratio() { return 0.25; }

    // l gets "*" and p.x appended; n is l's new mark count; the result is
    // (x + y, x - y).
    Shapes::Point bottom_op(const Shapes::Point& p, Shapes::Label& l, CORBA::Long_out n)
    {
        l.text = (std::string(l.text.in()) + "*").c_str();
        l.marks.length(l.marks.length() + 1);
        l.marks[l.marks.length() - 1] = p.x;
        n = static_cast<CORBA::Long>(l.marks.length());
        return Shapes::Point{p.x + p.y, p.x - p.y};
    }
    Shapes::Label* bottom_label() { return new Shapes::Label(label); }
    void bottom_label(const Shapes::Label& v) { label = v; }
};

// Servants of one side of the diamond only, and of the whole of it.
class LeftServant : public virtual POA_Shapes::Left, public Shape {
public:
    CORBA::Long top_op(CORBA::Long x, char*& s, Shapes::Point& p) override { return Shape::top_op(x, s, p); }
    char* top_name() override { return Shape::top_name(); }
    void top_name(const char* v) override { Shape::top_name(v); }
    CORBA::Long top_calls() override { return Shape::top_calls(); }
    Shapes::Label* left_op(const Shapes::Label& l, CORBA::Long& n, CORBA::String_out s) override
    {
        return Shape::left_op(l, n, s);
    }
    Shapes::Point left_point() override { return Shape::left_point(); }
    void left_point(const Shapes::Point& v) override { Shape::left_point(v); }
};

// The most derived skeleton implemented by inheritance.
class BottomServant : public virtual POA_Shapes::Bottom, public LeftServant {
public:
    char* right_op(const char* s, Shapes::Point& p, Shapes::Label_out l) override { return Shape::right_op(s, p, l); }
    CORBA::Double right_ratio() override { return Shape::right_ratio(); }
    Shapes::Point bottom_op(const Shapes::Point& p, Shapes::Label& l, CORBA::Long_out n) override
    {
        return Shape::bottom_op(p, l, n);
    }
    Shapes::Label* bottom_label() override { return Shape::bottom_label(); }
    void bottom_label(const Shapes::Label& v) override { Shape::bottom_label(v); }
};

enum class Kind { derived, tie };
typedef std::tuple<YV_Runtime::DispatchPath, Kind> Variant;

Shapes::Label make_label(const char* text, std::initializer_list<CORBA::Long> marks)
{
    Shapes::Label l;
    l.text = text;
    l.marks.length(static_cast<CORBA::ULong>(marks.size()));
    CORBA::ULong i = 0;
    for (CORBA::Long m : marks)
        l.marks[i++] = m;
    return l;
}

void expect_marks(const Shapes::Label& l, std::initializer_list<CORBA::Long> marks)
{
    ASSERT_EQ(l.marks.length(), marks.size());
    CORBA::ULong i = 0;
    for (CORBA::Long m : marks)
        EXPECT_EQ(l.marks[i++], m) << "mark " << i - 1 << " of " << l.text.in();
}

class DiamondTest : public ::testing::TestWithParam<Variant> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(std::get<0>(GetParam()));
        if (std::get<1>(GetParam()) == Kind::derived) {
            auto s = std::make_unique<BottomServant>();
            shape = s.get();
            bottom = s->_this();
            servant = std::move(s);
        } else {
            auto t = std::make_unique<POA_Shapes_Bottom_tie<Shape>>(new Shape, true);
            shape = t->_tied_object();
            bottom = t->_this();
            servant = std::move(t);
        }
        CORBA::Object_var plain = CORBA::Object::_duplicate(bottom.in());
        left = Shapes::Left::_narrow(plain.in());
        right = Shapes::Right::_narrow(plain.in());
        top = Shapes::Top::_narrow(plain.in());
        ASSERT_FALSE(CORBA::is_nil(left.in()));
        ASSERT_FALSE(CORBA::is_nil(right.in()));
        ASSERT_FALSE(CORBA::is_nil(top.in()));
    }
    void TearDown() override { YV_Runtime::set_dispatch_path(YV_Runtime::colocated); }

    std::unique_ptr<POA_Shapes::Bottom> servant;
    Shape* shape = nullptr;
    Shapes::Bottom_var bottom;
    Shapes::Left_var left;
    Shapes::Right_var right;
    Shapes::Top_var top;
};

TEST_P(DiamondTest, TopOperationThroughEveryLevelOfReference)
{
    Shapes::Top_ptr refs[] = {top.in(), left.in(), right.in(), bottom.in()};
    CORBA::Long x = 1;
    for (Shapes::Top_ptr ref : refs) {
        CORBA::String_var s = CORBA::string_dup("s");
        Shapes::Point p = {-1, -1};
        EXPECT_EQ(ref->top_op(x, s.inout(), p), 3 * x);
        EXPECT_STREQ(s.in(), ("s:" + std::to_string(x)).c_str());
        EXPECT_EQ(p.x, x);
        EXPECT_EQ(p.y, 2 * x);
        ++x;
    }
    EXPECT_EQ(bottom->top_calls(), 4);
    EXPECT_EQ(shape->calls, 4);
}

TEST_P(DiamondTest, SideOperationsInEveryDirection)
{
    const Shapes::Label in = make_label("in", {1, 2, 3});
    CORBA::Long n = 10;
    CORBA::String_var s = CORBA::string_dup("stale");
    Shapes::Label_var r = left->left_op(in, n, s.out());
    EXPECT_STREQ(r->text.in(), "in+");
    expect_marks(r.in(), {3, 2, 1});
    EXPECT_EQ(n, 16);
    EXPECT_STREQ(s.in(), "left:in");
    expect_marks(in, {1, 2, 3});

    Shapes::Point p = {4, 9};
    Shapes::Label_var l;
    CORBA::String_var rs = right->right_op("word", p, l.out());
    EXPECT_STREQ(rs.in(), "right:word");
    EXPECT_EQ(p.x, 9);
    EXPECT_EQ(p.y, 4);
    EXPECT_STREQ(l->text.in(), "word");
    expect_marks(l.in(), {4, 9});
}

TEST_P(DiamondTest, MostDerivedOperationCallsInheritedOnesToo)
{
    Shapes::Label l = make_label("b", {7});
    CORBA::Long n = -1;
    Shapes::Point r = bottom->bottom_op(Shapes::Point{5, 3}, l, n);
    EXPECT_EQ(r.x, 8);
    EXPECT_EQ(r.y, 2);
    EXPECT_STREQ(l.text.in(), "b*");
    expect_marks(l, {7, 5});
    EXPECT_EQ(n, 2);

    // The proxy of the most derived interface reaches both sides.
    CORBA::Long m = 0;
    CORBA::String_var s;
    Shapes::Label_var lr = bottom->left_op(l, m, s.out());
    EXPECT_STREQ(lr->text.in(), "b*+");
    EXPECT_EQ(m, 12);
    Shapes::Point q = {1, 2};
    Shapes::Label_var out;
    CORBA::String_var rs = bottom->right_op("d", q, out.out());
    EXPECT_STREQ(rs.in(), "right:d");
    EXPECT_EQ(q.x, 2);
    expect_marks(out.in(), {1, 2});
}

TEST_P(DiamondTest, AttributesOnEveryLevel)
{
    CORBA::String_var name = top->top_name();
    EXPECT_STREQ(name.in(), "shape");
    bottom->top_name("renamed");
    name = left->top_name();
    EXPECT_STREQ(name.in(), "renamed");
    EXPECT_EQ(right->top_calls(), 0);

    Shapes::Point p = left->left_point();
    EXPECT_EQ(p.x, 1);
    EXPECT_EQ(p.y, 2);
    bottom->left_point(Shapes::Point{-3, 30});
    p = bottom->left_point();
    EXPECT_EQ(p.x, -3);
    EXPECT_EQ(p.y, 30);

    EXPECT_EQ(right->right_ratio(), 0.25);
    EXPECT_EQ(bottom->right_ratio(), 0.25);

    bottom->bottom_label(make_label("lbl", {4, 5}));
    Shapes::Label_var l = bottom->bottom_label();
    EXPECT_STREQ(l->text.in(), "lbl");
    expect_marks(l.in(), {4, 5});
    EXPECT_STREQ(shape->label.text.in(), "lbl");
}

TEST_P(DiamondTest, InheritedOperationRaisesUserAndSystemExceptions)
{
    for (Shapes::Top_ptr ref : {top.in(), static_cast<Shapes::Top_ptr>(bottom.in())}) {
        CORBA::String_var s = CORBA::string_dup("kept");
        Shapes::Point p = {7, 7};
        try {
            ref->top_op(-4, s.inout(), p);
            FAIL() << "no exception";
        } catch (const Shapes::Refused& e) {
            EXPECT_STREQ(e.reason.in(), "negative");
            EXPECT_EQ(e.code, -4);
        }
        try {
            ref->top_op(0, s.inout(), p);
            FAIL() << "no exception";
        } catch (const CORBA::BAD_PARAM& e) {
            EXPECT_EQ(e.minor(), 5u);
            EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO);
        }
        EXPECT_STREQ(s.in(), "kept");
        EXPECT_EQ(p.x, 7);
    }
    // The servant still serves after the exceptions.
    EXPECT_EQ(bottom->top_calls(), 4);
}

// A user exception outside the operation's raises clause: with raises
// enforcement the skeleton turns it into UNKNOWN, else it reaches the caller
// as thrown.
TEST_P(DiamondTest, UndeclaredUserExceptionFromAnInheritedOperation)
{
    const Shapes::Label refuse = make_label("refuse", {});
    CORBA::Long n = 3;
    CORBA::String_var s;
#ifdef YV_E2E_ENFORCE_RAISES
    try {
        Shapes::Label_var r = bottom->left_op(refuse, n, s.out());
        FAIL() << "no exception";
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
#else
    EXPECT_THROW(Shapes::Label_var r = bottom->left_op(refuse, n, s.out()), Shapes::Refused);
#endif
    EXPECT_EQ(n, 3);
    // Declared and system exceptions pass unchanged either way (above).
}

TEST_P(DiamondTest, IsAAnswersAlongTheWholeChain)
{
    for (const char* id : {"IDL:Shapes/Bottom:1.0", "IDL:Shapes/Left:1.0", "IDL:Shapes/Right:1.0",
                           "IDL:Shapes/Top:1.0", "IDL:omg.org/CORBA/Object:1.0"}) {
        EXPECT_TRUE(bottom->_is_a(id)) << id;
        EXPECT_TRUE(top->_is_a(id)) << id;
    }
    for (const char* id : {"IDL:Shapes/Stranger:1.0", "IDL:Shapes/Point:1.0", "IDL:Shapes/Bottom:1.1", ""})
        EXPECT_FALSE(bottom->_is_a(id)) << id;
    EXPECT_FALSE(bottom->_non_existent());
    CORBA::Object_var plain = CORBA::Object::_duplicate(top.in());
    Shapes::Stranger_var stranger = Shapes::Stranger::_narrow(plain.in());
    EXPECT_TRUE(CORBA::is_nil(stranger.in()));
}

TEST_P(DiamondTest, UnknownOperationsFindNoDispatcher)
{
    for (const char* op : {"wander", "_set_top_calls", "_set_right_ratio", "top_op_", "TOP_OP", "_get_", ""})
        EXPECT_EQ(servant->_lookup_dispatcher(op), nullptr) << op;
    EXPECT_THROW(YV_Runtime::invoke(servant.get(), "wander", nullptr, nullptr), CORBA::BAD_OPERATION);
    // A proxy of an unrelated interface over the same object.
    Shapes::Stranger_var wrong = new Shapes::YV_Gen_DynamicProxy_Stranger(bottom.in());
    EXPECT_THROW(wrong->wander(), CORBA::BAD_OPERATION);
}

INSTANTIATE_TEST_SUITE_P(
    PathsAndServants, DiamondTest,
    ::testing::Combine(::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based),
                       ::testing::Values(Kind::derived, Kind::tie)),
    [](const ::testing::TestParamInfo<Variant>& info) {
        return std::string(std::get<0>(info.param) == YV_Runtime::colocated ? "Colocated" : "RequestBased") +
               (std::get<1>(info.param) == Kind::derived ? "Derived" : "Tie");
    });

typedef PortableServer::ServantBase::_YV_DispatcherPtr Dispatcher;

// Every name a Bottom servant answers, with the dispatch function the table
// must give for it: the declaring interface's, whichever level it is on.
TEST(DiamondTables, EveryNameFindsTheDeclaringInterfacesFunction)
{
    const std::pair<const char*, Dispatcher> expected[] = {
        {"_interface", &PortableServer::ServantBase::_get_interface_dispatch},
        {"_is_a", &PortableServer::ServantBase::_is_a_dispatch},
        {"_non_existent", &PortableServer::ServantBase::_non_existent_dispatch},
        {"top_op", &POA_Shapes::Top::top_op_yvgen_dispatch},
        {"_get_top_name", &POA_Shapes::Top::_get_top_name_yvgen_dispatch},
        {"_set_top_name", &POA_Shapes::Top::_set_top_name_yvgen_dispatch},
        {"_get_top_calls", &POA_Shapes::Top::_get_top_calls_yvgen_dispatch},
        {"left_op", &POA_Shapes::Left::left_op_yvgen_dispatch},
        {"_get_left_point", &POA_Shapes::Left::_get_left_point_yvgen_dispatch},
        {"_set_left_point", &POA_Shapes::Left::_set_left_point_yvgen_dispatch},
        {"right_op", &POA_Shapes::Right::right_op_yvgen_dispatch},
        {"_get_right_ratio", &POA_Shapes::Right::_get_right_ratio_yvgen_dispatch},
        {"bottom_op", &POA_Shapes::Bottom::bottom_op_yvgen_dispatch},
        {"_get_bottom_label", &POA_Shapes::Bottom::_get_bottom_label_yvgen_dispatch},
        {"_set_bottom_label", &POA_Shapes::Bottom::_set_bottom_label_yvgen_dispatch},
    };
    BottomServant bottom;
    POA_Shapes_Bottom_tie<Shape> tie(new Shape, true);
    LeftServant left;
    for (const auto& [name, function] : expected) {
        EXPECT_EQ(bottom._lookup_dispatcher(name), function) << name;
        EXPECT_EQ(tie._lookup_dispatcher(name), function) << name;
        // A servant of one side holds its own names and its base's only.
        const std::string n = name;
        const bool on_left = n.find("right") == std::string::npos && n.find("bottom") == std::string::npos;
        EXPECT_EQ(left._lookup_dispatcher(name), on_left ? function : nullptr) << name;
    }
}

TEST(DiamondTables, OneSideKnowsOnlyItsOwnChain)
{
    LeftServant servant;
    Shapes::Left_var ref = servant._this();
    EXPECT_TRUE(ref->_is_a("IDL:Shapes/Top:1.0"));
    EXPECT_TRUE(ref->_is_a("IDL:Shapes/Left:1.0"));
    EXPECT_FALSE(ref->_is_a("IDL:Shapes/Right:1.0"));
    EXPECT_FALSE(ref->_is_a("IDL:Shapes/Bottom:1.0"));
    CORBA::Object_var plain = CORBA::Object::_duplicate(ref.in());
    Shapes::Bottom_var as_bottom = Shapes::Bottom::_narrow(plain.in());
    EXPECT_TRUE(CORBA::is_nil(as_bottom.in()));
    EXPECT_THROW(YV_Runtime::invoke(&servant, "right_op", nullptr, nullptr), CORBA::BAD_OPERATION);
    // Skeleton narrowing follows the servant's classes.
    EXPECT_EQ(POA_Shapes::Top::_narrow(&servant), static_cast<POA_Shapes::Top*>(&servant));
    EXPECT_EQ(POA_Shapes::Right::_narrow(&servant), nullptr);
}

} // namespace
