// The generated client of Mapping.idl served in process through its
// generated skeleton, on the colocated path and on the request path:
// enums, unions, bounded sequences, fixed, wide strings, sequences of
// references, value types and boxes, arrays, exceptions with members,
// attributes, narrowing, local interfaces and reply handlers.
#include "MappingS.hh"
#include "PeerServant.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <exception>
#include <string>
#include <vector>

namespace {

// The value type implemented as a user would.
class NoteImpl : public virtual Run::Note {
public:
    NoteImpl(const char* text, CORBA::Long count) : m_text(text), m_count(count) {}
    void text(const char* v) override { m_text = v; }
    const char* text() const override { return m_text; }
    void count(CORBA::Long v) override { m_count = v; }
    CORBA::Long count() const override { return m_count; }
    CORBA::ValueBase* _copy_value() override { return new NoteImpl(m_text.in(), m_count); }

private:
    CORBA::String_var m_text;
    CORBA::Long m_count;
};

class ServiceServant : public virtual POA_Run::Service {
public:
    CORBA::Long id() override { return 1; }

    Run::Color next(Run::Color a, Run::Color& b, Run::Color_out c) override
    {
        c = a;
        b = Run::blue;
        return Run::green;
    }

    Run::Choice* pick(const Run::Choice& a, Run::Choice& b, Run::Choice_out c) override
    {
        c = new Run::Choice(a);
        b.text("changed");
        Run::Choice* r = new Run::Choice;
        r->number(5);
        return r;
    }

    Run::Names* names(const Run::Names& a, Run::Names& b, Run::Names_out c) override
    {
        c = new Run::Names(b);
        b = a;
        Run::Names* r = new Run::Names;
        r->length(1);
        (*r)[0] = "result";
        return r;
    }

    Run::Money add(const Run::Money& a, Run::Money& b, Run::Money& c) override
    {
        c = a + b;
        b = a;
        return a + a;
    }

    CORBA::WChar* widen(const CORBA::WChar* a, CORBA::WChar*& b, CORBA::WString_out c) override
    {
        c = CORBA::wstring_dup(b);
        CORBA::wstring_free(b);
        b = CORBA::wstring_dup(a);
        return CORBA::wstring_dup(L"wide result");
    }

    Run::Peers* peers(const Run::Peers& a) override { return new Run::Peers(a); }

    Run::Note* annotate(Run::Note* a, Run::Note*& b, Run::Note_out c) override
    {
        c = new NoteImpl(a->text(), a->count() + 1);
        b->count(b->count() * 10);
        return new NoteImpl("made", 3);
    }

    Run::Cube_slice* cube(const Run::Cube a) override
    {
        Run::Cube_slice* r = Run::Cube_alloc();
        for (int i = 0; i < 2; ++i)
            for (int j = 0; j < 2; ++j)
                for (int k = 0; k < 2; ++k)
                    r[i][j][k] = 2 * a[i][j][k];
        return r;
    }

    void fail(CORBA::Long code) override
    {
        const CORBA::Long cells[2] = {code, -code};
        throw Run::Problem("bad", code, cells);
    }

    Run::Pair* pair() override { return new Run::Pair(m_pair); }
    void pair(const Run::Pair& p) override { m_pair = p; }

    Run::Flag flag() override
    {
        Run::Flag f;
        f.value(2.5);
        return f;
    }

private:
    Run::Pair m_pair{};
};

// A reply handler that records which replies reached it.
class Handler : public virtual POA_Run::AMI_ServiceHandler {
public:
    std::vector<std::string> calls;

    void id(CORBA::Long v) override { calls.push_back("id " + std::to_string(v)); }
    void id_excep(Messaging::ExceptionHolder*) override { calls.push_back("id_excep"); }
    void next(Run::Color r, Run::Color b, Run::Color c) override
    {
        calls.push_back("next " + std::to_string(r) + std::to_string(b) + std::to_string(c));
    }
    void next_excep(Messaging::ExceptionHolder* h) override
    {
        try {
            h->raise_exception();
        } catch (const Run::Problem& p) {
            calls.push_back("next_excep " + std::string(p.what.in()));
        }
    }
    void pick(const Run::Choice&, const Run::Choice&, const Run::Choice&) override { calls.push_back("pick"); }
    void pick_excep(Messaging::ExceptionHolder*) override {}
    void names(const Run::Names& r, const Run::Names&, const Run::Names&) override
    {
        calls.push_back("names " + std::to_string(r.length()));
    }
    void names_excep(Messaging::ExceptionHolder*) override {}
    void add(const Run::Money&, const Run::Money&, const Run::Money&) override { calls.push_back("add"); }
    void add_excep(Messaging::ExceptionHolder*) override {}
    void widen(const CORBA::WChar*, const CORBA::WChar*, const CORBA::WChar*) override { calls.push_back("widen"); }
    void widen_excep(Messaging::ExceptionHolder*) override {}
    void peers(const Run::Peers&) override { calls.push_back("peers"); }
    void peers_excep(Messaging::ExceptionHolder*) override {}
    void annotate(Run::Note*, Run::Note*, Run::Note*) override { calls.push_back("annotate"); }
    void annotate_excep(Messaging::ExceptionHolder*) override {}
    void cube(const Run::Cube) override { calls.push_back("cube"); }
    void cube_excep(Messaging::ExceptionHolder*) override {}
    void fail() override { calls.push_back("fail"); }
    void fail_excep(Messaging::ExceptionHolder*) override { calls.push_back("fail_excep"); }
    void get_pair_complete(const Run::Pair& p) override { calls.push_back("get_pair " + std::to_string(p.c)); }
    void get_pair_excep(Messaging::ExceptionHolder*) override {}
    void set_pair_complete() override { calls.push_back("set_pair"); }
    void set_pair_excep(Messaging::ExceptionHolder*) override {}
    void get_flag_complete(const Run::Flag& f) override { calls.push_back("get_flag " + std::to_string(f._d())); }
    void get_flag_excep(Messaging::ExceptionHolder*) override {}
};

class DoublerImpl : public virtual Run::Doubler {
public:
    CORBA::Long twice(CORBA::Long x) override { return 2 * x; }
};

class ClientMappingTest : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(GetParam());
        service = servant._this();
    }
    void TearDown() override { YV_Runtime::set_dispatch_path(YV_Runtime::colocated); }

    ServiceServant servant;
    Run::Service_var service;
};

TEST(ClientMappingLocal, ConstantsEnumsAndUnions)
{
    EXPECT_STREQ(Run::GREETING, "hello");
    EXPECT_EQ(Run::HALF, 0.5);

    Run::Choice c;
    c.number(5);
    EXPECT_EQ(c._d(), Run::red);
    EXPECT_EQ(c.number(), 5);
    c.text("word");
    EXPECT_EQ(c._d(), Run::green);
    EXPECT_STREQ(c.text(), "word");
    Run::Longs l;
    l.length(2);
    l[1] = 4;
    c.list(l);
    EXPECT_EQ(c._d(), Run::blue); // the default branch takes the value no label names
    Run::Choice copy(c);
    c.list()[1] = 9;
    EXPECT_EQ(copy.list()[1], 4);

    Run::Flag f;
    f._default();
    EXPECT_FALSE(f._d());
    f.value(1.5);
    EXPECT_TRUE(f._d());
}

TEST(ClientMappingLocal, ArraysValueBoxesAndLocalInterfaces)
{
    Run::Cube_slice* a = Run::Cube_alloc();
    a[1][1][1] = 8;
    Run::Cube_var dup = Run::Cube_dup(a);
    EXPECT_EQ(dup[1][1][1], 8);
    Run::CubeAlias_slice* b = Run::CubeAlias_alloc();
    Run::CubeAlias_copy(b, a);
    EXPECT_EQ(b[1][1][1], 8);
    Run::Cube_free(a);
    Run::CubeAlias_free(b);

    Run::Count_var box = new Run::Count(41);
    box->_value(box->_value() + 1);
    Run::Count_var copy = Run::Count::_downcast(box->_copy_value());
    ASSERT_NE(copy.in(), nullptr);
    EXPECT_EQ(copy->_value(), 42);

    DoublerImpl* impl = new DoublerImpl;
    Run::Doubler_var local = Run::Doubler::_narrow(impl);
    CORBA::release(impl);
    ASSERT_FALSE(CORBA::is_nil(local.in()));
    EXPECT_EQ(local->twice(21), 42);
}

TEST_P(ClientMappingTest, EnumsUnionsAndBoundedSequences)
{
    Run::Color b = Run::red, c = Run::red;
    EXPECT_EQ(service->next(Run::green, b, c), Run::green);
    EXPECT_EQ(b, Run::blue);
    EXPECT_EQ(c, Run::green);

    Run::Choice in, inout;
    in.number(3);
    inout.number(0);
    Run::Choice_var out;
    Run::Choice_var r = service->pick(in, inout, out.out());
    EXPECT_EQ(r->number(), 5);
    EXPECT_EQ(out->number(), 3);
    EXPECT_STREQ(inout.text(), "changed");

    Run::Names a, nb;
    a.length(2);
    a[0] = "x";
    a[1] = "y";
    nb.length(1);
    nb[0] = "z";
    Run::Names_var nc;
    Run::Names_var nr = service->names(a, nb, nc.out());
    EXPECT_EQ(nb.length(), 2u);
    EXPECT_STREQ(nc[0], "z");
    EXPECT_STREQ(nr[0], "result");
    EXPECT_THROW(a.length(4), CORBA::BAD_PARAM);
}

TEST_P(ClientMappingTest, FixedAndWideStrings)
{
    Run::Money b(2.25), c;
    Run::Money r = service->add(Run::Money(1.5), b, c);
    EXPECT_EQ(r, Run::Money(3.0));
    EXPECT_EQ(b, Run::Money(1.5));
    EXPECT_EQ(c, Run::Money(3.75));

    CORBA::WString_var wb = CORBA::wstring_dup(L"before");
    CORBA::WString_var wc;
    CORBA::WString_var wr = service->widen(L"in", wb.inout(), wc.out());
    EXPECT_EQ(std::wcscmp(wb.in(), L"in"), 0);
    EXPECT_EQ(std::wcscmp(wc.in(), L"before"), 0);
    EXPECT_EQ(std::wcscmp(wr.in(), L"wide result"), 0);
}

TEST_P(ClientMappingTest, SequencesOfReferencesAndNarrowing)
{
    PeerServant one(11), two(22);
    Run::Peers list;
    list.length(2);
    list[0] = one._this();
    list[1] = two._this();
    Run::Peers_var back = service->peers(list);
    ASSERT_EQ(back->length(), 2u);
    EXPECT_EQ(back[0]->id(), 11);
    EXPECT_EQ(back[1]->id(), 22);

    Run::Peer_var as_peer = Run::Peer::_narrow(service.in());
    ASSERT_FALSE(CORBA::is_nil(as_peer.in()));
    EXPECT_EQ(as_peer->id(), 1);
    Run::Service_var not_a_service = Run::Service::_narrow(list[0].in());
    EXPECT_TRUE(CORBA::is_nil(not_a_service.in()));
}

TEST_P(ClientMappingTest, ValueTypesInEveryDirection)
{
    Run::Note_var a = new NoteImpl("a", 1);
    Run::Note_var b = new NoteImpl("b", 2);
    Run::Note_var c;
    Run::Note_var r = service->annotate(a.in(), b.inout(), c.out());
    EXPECT_STREQ(r->text(), "made");
    EXPECT_EQ(b->count(), 20);
    EXPECT_STREQ(c->text(), "a");
    EXPECT_EQ(c->count(), 2);
}

TEST_P(ClientMappingTest, ArraysExceptionsAndAttributes)
{
    Run::Cube a;
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j)
            for (int k = 0; k < 2; ++k)
                a[i][j][k] = i + j + k;
    Run::Cube_var doubled = service->cube(a);
    EXPECT_EQ(doubled[1][1][1], 6);

    try {
        service->fail(7);
        FAIL() << "no exception";
    } catch (const Run::Problem& p) {
        EXPECT_STREQ(p.what, "bad");
        EXPECT_EQ(p.code, 7);
        EXPECT_EQ(p.cells[1], -7);
        EXPECT_STREQ(p._rep_id(), "IDL:Run/Problem:1.0");
    }

    Run::Pair p{};
    p.c = Run::blue;
    p.what.number(4);
    p.w = CORBA::wstring_dup(L"w");
    service->pair(p);
    Run::Pair_var got = service->pair();
    EXPECT_EQ(got->c, Run::blue);
    EXPECT_EQ(got->what.number(), 4);
    EXPECT_EQ(service->flag().value(), 2.5);
}

TEST_P(ClientMappingTest, ReplyHandlersReceiveEveryKindOfReply)
{
    Handler handler;
    Run::AMI_ServiceHandler_var h = handler._this();
    h->next(Run::red, Run::green, Run::blue);
    h->id(9);
    Run::Names names;
    names.length(1);
    names[0] = "n";
    h->names(names, names, names);
    Run::Pair p{};
    p.c = Run::green;
    h->get_pair_complete(p);
    h->set_pair_complete();
    Run::Flag f;
    f.value(1.0);
    h->get_flag_complete(f);
    h->fail();
    const CORBA::Long cells[2] = {1, 2};
    Messaging::ExceptionHolder* holder =
        new Messaging::ExceptionHolder(std::make_exception_ptr(Run::Problem("held", 1, cells)));
    h->next_excep(holder);
    CORBA::remove_ref(holder);
    const std::vector<std::string> expected = {"next 012", "id 9",     "names 1",  "get_pair 1",
                                               "set_pair", "get_flag 1", "fail", "next_excep held"};
    EXPECT_EQ(handler.calls, expected);
}

INSTANTIATE_TEST_SUITE_P(BothPaths, ClientMappingTest,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based));

} // namespace
