// The generated marshaling, any operators and type codes of Wire.idl, which
// declares every kind of IDL type: values encoded, decoded and encoded again
// give the same octets in both byte orders; anys carry them through CDR;
// malformed data raises MARSHAL; the type codes describe the types.
#include "Wire.hh"

#include <zantic_sys/YV_Cxx/Operation.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace {

typedef std::vector<unsigned char> Octets;

template <class T>
Octets encode(const T& v, bool little = false)
{
    YV_CDR::OutputStream out(little);
    YV_Cxx::Marshal<T>::write(out, v);
    return Octets(out.data(), out.data() + out.size());
}

template <class T>
void decode(const Octets& data, T& v, bool little = false)
{
    YV_CDR::InputStream in(data.data(), data.size(), little);
    YV_Cxx::Marshal<T>::read(in, v);
    EXPECT_EQ(in.remaining(), 0U) << "octets left over";
}

// Encodes `v` in both byte orders, decodes it and checks that the decoded
// value encodes to the same octets; answers the value decoded from big
// endian. The encoding is at least Marshal<T>::min_size octets long.
template <class T>
T round_trip(const T& v)
{
    T back{};
    for (bool little : {false, true}) {
        SCOPED_TRACE(little ? "little endian" : "big endian");
        const Octets data = encode(v, little);
        EXPECT_GE(data.size(), YV_Cxx::Marshal<T>::min_size);
        T decoded{};
        decode(data, decoded, little);
        EXPECT_EQ(encode(decoded, little), data);
        if (!little)
            back = decoded;
    }
    return back;
}

// An any encoded and decoded again.
CORBA::Any any_round_trip(const CORBA::Any& a)
{
    const Octets data = encode(a);
    CORBA::Any back;
    decode(data, back);
    return back;
}

template <class Write>
Octets octets(Write write)
{
    YV_CDR::OutputStream out(false);
    write(out);
    return Octets(out.data(), out.data() + out.size());
}

Wire::Basics some_basics()
{
    Wire::Basics b;
    b.s = -2;
    b.us = 65000;
    b.l = -100000;
    b.ul = 4000000000U;
    b.ll = -(1LL << 40);
    b.ull = 1ULL << 63;
    b.f = 1.5F;
    b.d = -2.25;
    b.ld = 3.5L;
    b.c = 'x';
    b.wc = L'\x3b1';
    b.b = true;
    b.o = 0xff;
    return b;
}

Wire::Flat some_flat()
{
    Wire::Flat f;
    f.a = 7;
    f.b = 0.5;
    f.c = Wire::blue;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 3; ++j)
            f.g[i][j] = 10 * i + j;
    f.m = Wire::Money("1234.56");
    f.small = CORBA::Fixed("-12.5");
    return f;
}

Wire::Variable some_variable()
{
    Wire::Variable v;
    v.name = "variable";
    v.values.length(3);
    for (CORBA::ULong i = 0; i < 3; ++i)
        v.values[i] = static_cast<CORBA::Long>(i * i);
    v.words[0] = "first";
    v.words[1] = "";
    v.three.length(2);
    v.three[1] = 9;
    v.nested.length(2);
    v.nested[1].length(1);
    v.nested[1][0] = 42;
    v.matrix.length(1);
    v.matrix[0].length(2);
    v.matrix[0][0] = "a";
    v.matrix[0][1] = "bc";
    return v;
}

Wire::Node some_tree()
{
    Wire::Node root;
    root.label = "root";
    root.children.length(2);
    root.children[0].label = "left";
    root.children[1].label = "right";
    root.children[1].children.length(1);
    root.children[1].children[0].label = "leaf";
    return root;
}

TEST(GeneratedMarshal, StructuresOfEveryMemberKindRoundTrip)
{
    const Wire::Basics b = round_trip(some_basics());
    EXPECT_EQ(b.s, -2);
    EXPECT_EQ(b.us, 65000);
    EXPECT_EQ(b.ul, 4000000000U);
    EXPECT_EQ(b.ll, -(1LL << 40));
    EXPECT_EQ(b.ull, 1ULL << 63);
    EXPECT_EQ(b.ld, 3.5L);
    EXPECT_EQ(b.wc, L'\x3b1');
    EXPECT_TRUE(b.b);
    EXPECT_EQ(b.o, 0xff);

    Wire::Texts t;
    t.s = "plain";
    t.bounded = "eight ch";
    t.ws = CORBA::wstring_dup(L"wide \x263a");
    t.wbounded = CORBA::wstring_dup(L"four");
    t.anonymous = "abc";
    const Wire::Texts tb = round_trip(t);
    EXPECT_STREQ(tb.bounded.in(), "eight ch");
    EXPECT_EQ(std::wstring(tb.ws.in()), L"wide \x263a");

    const Wire::Flat f = round_trip(some_flat());
    EXPECT_EQ(f.c, Wire::blue);
    EXPECT_EQ(f.g[1][2], 12);
    EXPECT_EQ(f.m, Wire::Money("1234.56"));
    EXPECT_EQ(f.small, CORBA::Fixed("-12.5"));

    const Wire::Variable v = round_trip(some_variable());
    EXPECT_EQ(v.values.length(), 3U);
    EXPECT_EQ(v.values[2], 4);
    EXPECT_STREQ(v.words[0].in(), "first");
    EXPECT_EQ(v.nested[1][0], 42);
    EXPECT_STREQ(v.matrix[0][1].in(), "bc");

    const Wire::Node n = round_trip(some_tree());
    ASSERT_EQ(n.children.length(), 2U);
    EXPECT_STREQ(n.children[1].children[0].label.in(), "leaf");

    // Default values (empty strings, sequences and anys) travel too.
    round_trip(Wire::Variable());
    round_trip(Wire::Node());
}

TEST(GeneratedMarshal, UnionsCarryTheirDiscriminatorAndActiveMember)
{
    Wire::ByLong l;
    l.s("two");
    l._d(3);
    const Wire::ByLong lb = round_trip(l);
    EXPECT_EQ(lb._d(), 3);
    EXPECT_STREQ(lb.s(), "two");
    Wire::ByLong d;
    d.b(some_basics());
    d._d(-7);
    EXPECT_EQ(round_trip(d).b().ul, 4000000000U);

    Wire::ByEnum e;
    e.names(Wire::ByEnum().names());
    e.names().length(2);
    e.names()[1] = "second";
    EXPECT_STREQ(round_trip(e).names()[1].in(), "second");
    e.f(some_flat());
    EXPECT_EQ(round_trip(e).f().m, Wire::Money("1234.56"));
    // A discriminator that no label names carries no member.
    e._default();
    EXPECT_EQ(encode(e).size(), 4U);
    EXPECT_EQ(round_trip(e)._d(), Wire::blue);

    Wire::ByChar c;
    Wire::Grid g = {{1, 2, 3}, {4, 5, 6}};
    c.g(g);
    EXPECT_EQ(round_trip(c).g()[1][0], 4);
    c.o(9);
    EXPECT_EQ(round_trip(c).o(), 9);

    Wire::ByBool yes;
    yes.yes("yes");
    EXPECT_STREQ(round_trip(yes).yes(), "yes");
    Wire::ByBool no;
    no.no(-1);
    EXPECT_EQ(round_trip(no).no(), -1);

    Wire::OnlyTrue only;
    only._default();
    EXPECT_FALSE(round_trip(only)._d());
}

// Discriminators of every other integer type and of wchar, with labels at
// the ends of their ranges.
TEST(GeneratedMarshal, UnionsOfEveryDiscriminatorType)
{
    Wire::ByShort s;
    Wire::Flats flats = {some_flat(), some_flat()};
    s.flats(flats);
    EXPECT_EQ(round_trip(s).flats()[1].m, Wire::Money("1234.56"));
    s.wc(L'\x263a');
    s._d(-32768);
    const Wire::ByShort sb = round_trip(s);
    EXPECT_EQ(sb._d(), -32768);
    EXPECT_EQ(sb.wc(), L'\x263a');

    Wire::ByUShort us;
    us.top(0.125);
    EXPECT_EQ(round_trip(us).top(), 0.125);
    EXPECT_EQ(round_trip(us)._d(), 65535);

    Wire::ByULong ul;
    ul.big(-1);
    EXPECT_EQ(round_trip(ul)._d(), 4000000000U);
    ul.other("other");
    ul._d(5);
    EXPECT_STREQ(round_trip(ul).other(), "other");

    Wire::ByLongLong ll;
    ll.price(Wire::Price("-0.01"));
    EXPECT_EQ(round_trip(ll)._d(), -5000000000LL);
    EXPECT_EQ(round_trip(ll).price(), Wire::Price("-0.01"));
    ll.tree(some_tree());
    EXPECT_STREQ(round_trip(ll).tree().children[1].children[0].label.in(), "leaf");

    Wire::ByULongLong ull;
    ull.top(7);
    EXPECT_EQ(round_trip(ull)._d(), 18000000000000000000ULL);
    ull.chain(some_basics());
    EXPECT_EQ(encode(round_trip(ull).chain()), encode(some_basics()));

    Wire::ByWChar wc;
    wc.alpha(L"\x3b1\x3b2");
    EXPECT_EQ(round_trip(wc)._d(), L'a');
    EXPECT_EQ(std::wstring(round_trip(wc).alpha()), L"\x3b1\x3b2");
    wc.other(3);
    wc._d(L'\x10348');
    EXPECT_EQ(round_trip(wc)._d(), L'\x10348');
}

Wire::Collections some_collections()
{
    Wire::Collections c;
    c.flats[0] = some_flat();
    c.flats[1] = some_flat();
    c.flats[1].m = Wire::Money("-0.5");
    c.unions.length(2);
    c.unions[0].s("first");
    c.unions[1].l(4);
    c.colors.length(3);
    c.colors[2] = Wire::blue;
    c.wide.length(2);
    c.wide[1] = CORBA::wstring_dup(L"\x263a\x10348");
    c.wchars.length(2);
    c.wchars[0] = L'\xe9';
    c.wchars[1] = L'\x10348';
    c.anys.length(2);
    c.anys[0] <<= some_flat();
    c.anys[1] <<= Wire::green;
    c.prices.length(2);
    c.prices[1] = Wire::Price("9999999.99");
    c.grids.length(1);
    c.grids[0][1][2] = -3;
    c.bounded.length(2);
    c.bounded[1].small = CORBA::Fixed("0.5");
    c.price = Wire::Price("-9999999.99");
    c.chain = some_basics();
    return c;
}

TEST(GeneratedMarshal, ArraysAndSequencesOfEveryElementKindRoundTrip)
{
    const Wire::Collections c = round_trip(some_collections());
    EXPECT_EQ(c.flats[0].g[1][2], 12);
    EXPECT_EQ(c.flats[1].m, Wire::Money("-0.5"));
    EXPECT_STREQ(c.unions[0].s(), "first");
    EXPECT_EQ(c.unions[1].l(), 4);
    EXPECT_EQ(c.colors[2], Wire::blue);
    EXPECT_EQ(std::wstring(c.wide[1].in()), L"\x263a\x10348");
    EXPECT_EQ(c.wchars[1], L'\x10348');
    const Wire::Flat* flat = nullptr;
    ASSERT_TRUE(c.anys[0] >>= flat);
    EXPECT_EQ(flat->m, Wire::Money("1234.56"));
    EXPECT_EQ(c.prices[1], Wire::Price("9999999.99"));
    EXPECT_EQ(c.grids[0][1][2], -3);
    EXPECT_EQ(c.bounded[1].small, CORBA::Fixed("0.5"));
    EXPECT_EQ(c.price, Wire::Price("-9999999.99"));
    EXPECT_EQ(c.chain.ull, 1ULL << 63);
    round_trip(Wire::Collections());

    // A fixed-point typedef writes its own digits: 9 digits in 5 octets.
    EXPECT_EQ(encode(Wire::Price("1.5")), (Octets{0x00, 0x00, 0x00, 0x15, 0x0c}));
}

// Nil references and references read from a URL travel as their IORs.
TEST(GeneratedMarshal, ReferencesRoundTrip)
{
    int argc = 0;
    CORBA::ORB_var orb = CORBA::ORB_init(argc, nullptr);
    CORBA::Object_var obj = orb->string_to_object("corbaloc::127.0.0.1:1/echo");
    Wire::Refs r;
    r.target = Wire::Echo::_unchecked_narrow(obj);
    r.echoes.length(2);
    r.echoes[1] = Wire::Echo::_duplicate(r.target);
    const Wire::Refs back = round_trip(r);
    ASSERT_FALSE(CORBA::is_nil(back.target));
    EXPECT_TRUE(CORBA::is_nil(back.plain));
    EXPECT_TRUE(CORBA::is_nil(back.echoes[0]));
    EXPECT_TRUE(back.echoes[1]->_is_equivalent(obj));
    round_trip(Wire::Refs());

    CORBA::Any a;
    a <<= r.target.in();
    Wire::Echo_ptr echo = Wire::Echo::_nil();
    CORBA::Any ea = any_round_trip(a);
    ASSERT_TRUE(ea >>= echo);
    EXPECT_TRUE(echo->_is_equivalent(obj));
    Wire::Echo_ptr adopted = Wire::Echo::_duplicate(r.target);
    a <<= &adopted;
    EXPECT_TRUE(CORBA::is_nil(adopted));
    CORBA::Any na = any_round_trip(a);
    ASSERT_TRUE(na >>= echo);
    EXPECT_TRUE(echo->_is_equivalent(obj));
    orb->destroy();
}

// The octets themselves, against the CDR rules: the member after a char
// discriminator is aligned on its own size.
TEST(GeneratedMarshal, EncodingFollowsTheCdrLayout)
{
    Wire::ByChar c;
    c.d(1.5);
    EXPECT_EQ(encode(c), (Octets{'a', 0, 0, 0, 0, 0, 0, 0, 0x3f, 0xf8, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(encode(c, true), (Octets{'a', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xf8, 0x3f}));

    Wire::ByLong l;
    l.l(5);
    EXPECT_EQ(encode(l), (Octets{0, 0, 0, 1, 0, 0, 0, 5}));
    EXPECT_EQ(encode(Wire::green), (Octets{0, 0, 0, 1}));
}

TEST(GeneratedMarshal, MalformedDataRaisesMarshal)
{
    const struct {
        const char* what;
        Octets data;
        std::function<void(const Octets&)> read;
    } cases[] = {
        {"enumerator out of range", octets([](YV_CDR::OutputStream& o) { o.write_ulong(3); }),
         [](const Octets& d) { Wire::Color c; decode(d, c); }},
        {"enum discriminator out of range", octets([](YV_CDR::OutputStream& o) { o.write_ulong(7); }),
         [](const Octets& d) { Wire::ByEnum u; decode(d, u); }},
        {"boolean discriminator out of range", Octets{2, 0, 0, 0, 0, 0, 0, 1},
         [](const Octets& d) { Wire::OnlyTrue u; decode(d, u); }},
        {"bounded sequence over its bound",
         octets([](YV_CDR::OutputStream& o) { for (int i = 0; i < 5; ++i) o.write_ulong(4); }),
         [](const Octets& d) { Wire::ThreeLongs s; decode(d, s); }},
        {"count beyond the data", octets([](YV_CDR::OutputStream& o) { o.write_ulong(0x7fffffff); o.write_long(1); }),
         [](const Octets& d) { Wire::Longs s; decode(d, s); }},
        {"recursive count beyond the data",
         octets([](YV_CDR::OutputStream& o) { o.write_string("n"); o.write_ulong(1000000); }),
         [](const Octets& d) { Wire::Node n; decode(d, n); }},
        {"bounded string over its bound",
         octets([](YV_CDR::OutputStream& o) { o.write_string(""); o.write_string("nine char"); }),
         [](const Octets& d) { Wire::Texts t; decode(d, t); }},
        {"truncated structure", Octets{0, 0, 0, 1},
         [](const Octets& d) { Wire::Flat f; decode(d, f); }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_THROW(c.read(c.data), CORBA::MARSHAL);
    }

    Wire::Texts t;
    t.bounded = "nine char";
    EXPECT_THROW(encode(t), CORBA::BAD_PARAM);
}

TEST(GeneratedMarshal, ExceptionsTravelWithTheirRepositoryId)
{
    const CORBA::Long cells[2][3] = {{1, 2, 3}, {4, 5, 6}};
    const Wire::Problem sent("broken", 17, some_flat(), cells);
    const CORBA::Exception& as_base = sent;
    EXPECT_EQ(Wire::Problem::_downcast(&as_base), &sent);
    EXPECT_EQ(Wire::Empty::_downcast(&as_base), nullptr);
    const Octets data = octets([&](YV_CDR::OutputStream& o) { sent._yv_write(o); });
    YV_CDR::InputStream in(data.data(), data.size(), false);
    CORBA::String_var id = in.read_string();
    EXPECT_STREQ(id.in(), "IDL:Wire/Problem:1.0");
    try {
        YV_Cxx::read_and_raise<Wire::Problem>(in);
        FAIL() << "nothing raised";
    } catch (const Wire::Problem& p) {
        EXPECT_STREQ(p.reason.in(), "broken");
        EXPECT_EQ(p.code, 17);
        EXPECT_EQ(p.detail.g[1][2], 12);
        EXPECT_EQ(p.cells[1][0], 4);
    }
    EXPECT_EQ(in.remaining(), 0U);
}

TEST(GeneratedMarshal, SequenceTypedefsAreDistinctTypes)
{
    static_assert(!std::is_same<Wire::Longs, Wire::OtherLongs>::value, "one class per sequence typedef");
    static_assert(!std::is_same<Wire::Grid_forany, Wire::GridAlias_forany>::value, "one forany per array typedef");
    Wire::Longs l(2, 0, nullptr);
    EXPECT_EQ(l.length(), 0U);
    CORBA::Long data[2] = {3, 4};
    Wire::OtherLongs o(2, 2, data);
    EXPECT_EQ(o[1], 4);
    // Each typedef inserts with its own type code; extraction looks
    // through aliases, so the other typedef of the same sequence extracts
    // too, while a bounded one does not.
    CORBA::Any a;
    a <<= o;
    CORBA::TypeCode_var type = a.type();
    EXPECT_TRUE(type->equal(Wire::_tc_OtherLongs));
    const Wire::OtherLongs* right = nullptr;
    ASSERT_TRUE(a >>= right);
    EXPECT_EQ((*right)[0], 3);
    const Wire::Longs* alias = nullptr;
    EXPECT_TRUE(a >>= alias);
    const Wire::ThreeLongs* bounded = nullptr;
    EXPECT_FALSE(a >>= bounded);
}

TEST(GeneratedAny, EveryKindTravelsThroughAnAny)
{
    CORBA::Any a;

    a <<= some_basics();
    const Wire::Basics* b = nullptr;
    CORBA::Any ba = any_round_trip(a);  // owns what b points at
    ASSERT_TRUE(ba >>= b);
    EXPECT_EQ(encode(*b), encode(some_basics()));
    const Wire::Flat* not_flat = nullptr;
    EXPECT_FALSE(a >>= not_flat);

    a <<= new Wire::Variable(some_variable());
    const Wire::Variable* v = nullptr;
    CORBA::Any va = any_round_trip(a);
    ASSERT_TRUE(va >>= v);
    EXPECT_EQ(encode(*v), encode(some_variable()));

    // An any inside a structure inside an any.
    Wire::Carrier carrier;
    carrier.extra <<= some_flat();
    carrier.label = "carried";
    a <<= carrier;
    const Wire::Carrier* cb = nullptr;
    CORBA::Any ca = any_round_trip(a);
    ASSERT_TRUE(ca >>= cb);
    const Wire::Flat* inner = nullptr;
    ASSERT_TRUE(cb->extra >>= inner);
    EXPECT_EQ(inner->g[1][1], 11);
    EXPECT_EQ(encode(*cb), encode(carrier));

    a <<= some_tree();
    const Wire::Node* n = nullptr;
    CORBA::Any na = any_round_trip(a);
    ASSERT_TRUE(na >>= n);
    EXPECT_EQ(encode(*n), encode(some_tree()));

    a <<= Wire::green;
    Wire::Color c = Wire::red;
    ASSERT_TRUE(any_round_trip(a) >>= c);
    EXPECT_EQ(c, Wire::green);

    Wire::ByLong u;
    u.s("union");
    a <<= u;
    const Wire::ByLong* ub = nullptr;
    CORBA::Any ua = any_round_trip(a);
    ASSERT_TRUE(ua >>= ub);
    EXPECT_STREQ(ub->s(), "union");

    Wire::Grid g = {{1, 2, 3}, {4, 5, 6}};
    a <<= Wire::Grid_forany(g);
    Wire::Grid_forany gf;
    CORBA::Any ga = any_round_trip(a);
    ASSERT_TRUE(ga >>= gf);
    EXPECT_EQ(gf[1][2], 6);

    const CORBA::Long cells[2][3] = {{0, 0, 0}, {0, 0, 7}};
    a <<= Wire::Problem("any", 3, some_flat(), cells);
    const Wire::Problem* p = nullptr;
    CORBA::Any pa = any_round_trip(a);
    ASSERT_TRUE(pa >>= p);
    EXPECT_STREQ(p->reason.in(), "any");
    EXPECT_EQ(p->cells[1][2], 7);
}

// The kinds the test above leaves out, each inserted by copy and by
// adoption where the mapping has both, through CDR and back.
TEST(GeneratedAny, OtherKindsTravelThroughAnAny)
{
    CORBA::Any a;
    a <<= some_collections();
    const Wire::Collections* c = nullptr;
    CORBA::Any ca = any_round_trip(a);
    ASSERT_TRUE(ca >>= c);
    EXPECT_EQ(encode(*c), encode(some_collections()));

    Wire::Flats flats = {some_flat(), some_flat()};
    a <<= Wire::Flats_forany(flats);
    Wire::Flats_forany ff;
    CORBA::Any fa = any_round_trip(a);
    ASSERT_TRUE(fa >>= ff);
    EXPECT_EQ(ff[1].m, Wire::Money("1234.56"));

    Wire::ByULongLong u;
    u.chain(some_basics());
    a <<= new Wire::ByULongLong(u);
    const Wire::ByULongLong* ub = nullptr;
    CORBA::Any ua = any_round_trip(a);
    ASSERT_TRUE(ua >>= ub);
    EXPECT_EQ(encode(*ub), encode(u));

    Wire::ByWChar w;
    w.alpha(L"\x10348");
    a <<= w;
    const Wire::ByWChar* wb = nullptr;
    CORBA::Any wa = any_round_trip(a);
    ASSERT_TRUE(wa >>= wb);
    EXPECT_EQ(std::wstring(wb->alpha()), L"\x10348");

    Wire::Texts t;
    t.ws = CORBA::wstring_dup(L"\x263a");
    t.bounded = "bounded";
    a <<= new Wire::Texts(t);
    const Wire::Texts* tb = nullptr;
    CORBA::Any ta = any_round_trip(a);
    ASSERT_TRUE(ta >>= tb);
    EXPECT_EQ(encode(*tb), encode(t));

    a <<= Wire::Empty();
    const Wire::Empty* e = nullptr;
    CORBA::Any eany = any_round_trip(a);
    EXPECT_TRUE(eany >>= e);
    const Wire::Problem* not_problem = nullptr;
    EXPECT_FALSE(eany >>= not_problem);

    // Extraction compares types by equivalence: a typedef chain of a
    // structure extracts as the structure.
    CORBA::Any chained;
    chained <<= some_basics();
    chained.type(Wire::_tc_BasicsChain);
    const Wire::Basics* b = nullptr;
    CORBA::Any ba = any_round_trip(chained);
    ASSERT_TRUE(ba >>= b);
    CORBA::TypeCode_var type = ba.type();
    EXPECT_TRUE(type->equal(Wire::_tc_BasicsChain));

    // A fixed-point typedef goes in with its digits and scale.
    a <<= CORBA::Any::from_fixed(Wire::Price("12.5"), 9, 2);
    CORBA::Any pa = any_round_trip(a);
    CORBA::Fixed price;
    ASSERT_TRUE(pa >>= CORBA::Any::to_fixed(price, 9, 2));
    EXPECT_EQ(price, CORBA::Fixed("12.5"));
}

// Copying insertion adds a reference, adopting takes the caller's over;
// extraction lends the one the any holds.
TEST(GeneratedAny, ValuesAreSharedByReference)
{
    Wire::Amount_var amount = new Wire::Amount(12);
    CORBA::Any a;
    a <<= amount.in();
    EXPECT_EQ(amount->_refcount_value(), 2U);
    Wire::Amount* out = nullptr;
    ASSERT_TRUE(a >>= out);
    EXPECT_EQ(out, amount.in());
    Wire::Amount* adopted = new Wire::Amount(13);
    a <<= &adopted;
    EXPECT_EQ(adopted, nullptr);
    EXPECT_EQ(amount->_refcount_value(), 1U);
    ASSERT_TRUE(a >>= out);
    EXPECT_EQ(out->_value(), 13);
    CORBA::TypeCode_var type = a.type();
    EXPECT_EQ(type->kind(), CORBA::tk_value_box);
    const Wire::Flat* not_flat = nullptr;
    EXPECT_FALSE(a >>= not_flat);
}

TEST(GeneratedTypeCode, StructuresListTheirMembers)
{
    CORBA::TypeCode_ptr tc = Wire::_tc_Flat;
    EXPECT_EQ(tc->kind(), CORBA::tk_struct);
    EXPECT_STREQ(tc->id(), "IDL:Wire/Flat:1.0");
    EXPECT_STREQ(tc->name(), "Flat");
    const struct {
        const char* name;
        CORBA::TCKind kind;
    } members[] = {{"a", CORBA::tk_long}, {"b", CORBA::tk_double}, {"c", CORBA::tk_enum},
                   {"g", CORBA::tk_alias}, {"m", CORBA::tk_alias}, {"small", CORBA::tk_fixed}};
    ASSERT_EQ(tc->member_count(), 6U);
    for (CORBA::ULong i = 0; i < 6; ++i) {
        SCOPED_TRACE(members[i].name);
        EXPECT_STREQ(tc->member_name(i), members[i].name);
        CORBA::TypeCode_var t = tc->member_type(i);
        EXPECT_EQ(t->kind(), members[i].kind);
    }
    CORBA::TypeCode_var small = tc->member_type(5);
    EXPECT_EQ(small->fixed_digits(), 5);
    EXPECT_EQ(small->fixed_scale(), 1);

    // Grid: an array of 2 arrays of 3 longs.
    CORBA::TypeCode_var grid = Wire::_tc_Grid->content_type();
    EXPECT_EQ(grid->kind(), CORBA::tk_array);
    EXPECT_EQ(grid->length(), 2U);
    CORBA::TypeCode_var row = grid->content_type();
    EXPECT_EQ(row->length(), 3U);
    CORBA::TypeCode_var cell = row->content_type();
    EXPECT_EQ(cell->kind(), CORBA::tk_long);

    CORBA::TypeCode_var bounded = Wire::_tc_Texts->member_type(4);
    EXPECT_EQ(bounded->kind(), CORBA::tk_string);
    EXPECT_EQ(bounded->length(), 3U);
    CORBA::TypeCode_var wide = Wire::_tc_Texts->member_type(3);
    EXPECT_EQ(wide->kind(), CORBA::tk_wstring);
    EXPECT_EQ(wide->length(), 4U);

    EXPECT_EQ(Wire::_tc_Problem->kind(), CORBA::tk_except);
    EXPECT_EQ(Wire::_tc_Problem->member_count(), 4U);
    EXPECT_EQ(Wire::_tc_Empty->member_count(), 0U);
    EXPECT_EQ(Wire::_tc_Echo->kind(), CORBA::tk_objref);
    EXPECT_STREQ(Wire::_tc_Echo->id(), "IDL:Wire/Echo:1.0");
}

TEST(GeneratedTypeCode, UnionsKeepLabelsDefaultAndDiscriminator)
{
    CORBA::TypeCode_ptr tc = Wire::_tc_ByLong;
    ASSERT_EQ(tc->member_count(), 4U);
    EXPECT_EQ(tc->default_index(), 3);
    const char* names[] = {"l", "s", "s", "b"};
    for (CORBA::ULong i = 0; i < 3; ++i) {
        EXPECT_STREQ(tc->member_name(i), names[i]);
        CORBA::Any_var label = tc->member_label(i);
        CORBA::Long value = 0;
        ASSERT_TRUE(*label >>= value);
        EXPECT_EQ(value, static_cast<CORBA::Long>(i + 1));
    }
    CORBA::TypeCode_var disc = tc->discriminator_type();
    EXPECT_EQ(disc->kind(), CORBA::tk_long);

    CORBA::TypeCode_var shade = Wire::_tc_ByEnum->discriminator_type();
    EXPECT_TRUE(shade->equal(Wire::_tc_Shade));
    EXPECT_EQ(Wire::_tc_ByEnum->default_index(), -1);
    CORBA::Any_var green = Wire::_tc_ByEnum->member_label(1);
    Wire::Color c = Wire::red;
    ASSERT_TRUE(*green >>= c);
    EXPECT_EQ(c, Wire::green);

    CORBA::Any_var b = Wire::_tc_ByChar->member_label(1);
    CORBA::Char ch = 0;
    ASSERT_TRUE(*b >>= CORBA::Any::to_char(ch));
    EXPECT_EQ(ch, 'b');

    CORBA::Any_var no = Wire::_tc_ByBool->member_label(1);
    CORBA::Boolean flag = true;
    ASSERT_TRUE(*no >>= CORBA::Any::to_boolean(flag));
    EXPECT_FALSE(flag);
}

TEST(GeneratedTypeCode, AliasesKeepTheirChainAndRecursionIsACycle)
{
    CORBA::TypeCode_var hue = Wire::_tc_Shade->content_type();
    EXPECT_TRUE(hue->equal(Wire::_tc_Hue));
    EXPECT_FALSE(Wire::_tc_Shade->equal(Wire::_tc_Color));
    EXPECT_TRUE(Wire::_tc_Shade->equivalent(Wire::_tc_Color));
    EXPECT_FALSE(Wire::_tc_Longs->equal(Wire::_tc_OtherLongs));
    EXPECT_TRUE(Wire::_tc_Longs->equivalent(Wire::_tc_OtherLongs));
    CORBA::TypeCode_var seq = Wire::_tc_Longs->content_type();
    CORBA::TypeCode_var other = Wire::_tc_OtherLongs->content_type();
    EXPECT_TRUE(seq->equal(other));

    // Typedef chains of a structure, a fixed-point type and an interface.
    EXPECT_FALSE(Wire::_tc_BasicsChain->equal(Wire::_tc_BasicsAlias));
    EXPECT_TRUE(Wire::_tc_BasicsChain->equivalent(Wire::_tc_Basics));
    EXPECT_TRUE(Wire::_tc_Price->equivalent(Wire::_tc_Money));
    CORBA::TypeCode_var money = Wire::_tc_Price->content_type();
    EXPECT_TRUE(money->equal(Wire::_tc_Money));
    EXPECT_TRUE(Wire::_tc_EchoAlias->equivalent(Wire::_tc_Echo));
    EXPECT_FALSE(Wire::_tc_EchoAlias->equivalent(CORBA::_tc_Object));
    CORBA::TypeCode_var digits = money->content_type();
    EXPECT_EQ(digits->fixed_digits(), 9);
    EXPECT_EQ(digits->fixed_scale(), 2);
    CORBA::TypeCode_var flats = Wire::_tc_Flats->content_type();
    CORBA::TypeCode_var flat = flats->content_type();
    EXPECT_TRUE(flat->equal(Wire::_tc_Flat));

    CORBA::TypeCode_var children = Wire::_tc_Node->member_type(1);
    EXPECT_EQ(children->kind(), CORBA::tk_sequence);
    CORBA::TypeCode_var node = children->content_type();
    EXPECT_TRUE(node->equal(Wire::_tc_Node));
}

} // namespace
