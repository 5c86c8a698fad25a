// References of an interface that Forward.idl only declares, passed in
// every direction and inside a sequence, a structure and an exception, on
// both dispatch paths. Forward's generated code knows Peer as an incomplete
// class; this file includes Mapping's header after Forward's.
#include "ForwardS.hh"
#include "MappingS.hh"
#include "PeerServant.h"

#include <gtest/gtest.h>

namespace {

class RegistryServant : public virtual POA_Run::Registry {
public:
    void know(Run::Peer_ptr p) { m_known = Run::Peer::_duplicate(p); }

    Run::Peer_ptr find(CORBA::Long id) override
    {
        if (id == m_known->id())
            return Run::Peer::_duplicate(m_known.in());
        throw Run::NotFound(m_known.in());
    }
    Run::Peer_ptr swap(Run::Peer_ptr a, Run::Peer_out b, Run::Peer_ptr& c) override
    {
        b = Run::Peer::_duplicate(c);
        CORBA::release(c);
        c = Run::Peer::_duplicate(a);
        return Run::Peer::_nil();
    }
    Run::PeerList* all(const Run::PeerList& some, Run::PeerList_out more) override
    {
        more = new Run::PeerList(some);
        Run::PeerList* r = new Run::PeerList;
        r->length(1);
        (*r)[0] = Run::Peer::_duplicate(m_known.in());
        return r;
    }
    Run::Entry* entry(const Run::Entry& e) override
    {
        Run::Entry* r = new Run::Entry(e);
        r->who = Run::Peer::_duplicate(m_known.in());
        return r;
    }
    Run::Peer_ptr last() override { return Run::Peer::_duplicate(m_last.in()); }
    void last(Run::Peer_ptr p) override { m_last = Run::Peer::_duplicate(p); }

private:
    Run::Peer_var m_known;
    Run::Peer_var m_last;
};

class ForwardReferenceTest : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(GetParam());
        one = one_servant._this();
        two = two_servant._this();
        registry_servant.know(one.in());
        registry = registry_servant._this();
    }
    void TearDown() override { YV_Runtime::set_dispatch_path(YV_Runtime::colocated); }

    PeerServant one_servant{1}, two_servant{2};
    Run::Peer_var one, two;
    RegistryServant registry_servant;
    Run::Registry_var registry;
};

TEST_P(ForwardReferenceTest, ReferencesTravelInEveryForm)
{
    Run::Peer_var found = registry->find(1);
    EXPECT_EQ(found->id(), 1);
    try {
        registry->find(7);
        ADD_FAILURE() << "no NotFound";
    } catch (const Run::NotFound& e) {
        EXPECT_EQ(e.nearest->id(), 1);
    }

    Run::Peer_var b;
    Run::Peer_var c = Run::Peer::_duplicate(two.in());
    Run::Peer_var r = registry->swap(one.in(), b.out(), c.inout());
    EXPECT_TRUE(CORBA::is_nil(r.in()));
    EXPECT_EQ(b->id(), 2);
    EXPECT_EQ(c->id(), 1);

    Run::PeerList some;
    some.length(2);
    some[0] = Run::Peer::_duplicate(two.in());
    some[1] = Run::Peer::_duplicate(one.in());
    Run::PeerList_var more;
    Run::PeerList_var back = registry->all(some, more.out());
    ASSERT_EQ(back->length(), 1u);
    EXPECT_EQ(back[0]->id(), 1);
    ASSERT_EQ(more->length(), 2u);
    EXPECT_EQ(more[0]->id(), 2);
    EXPECT_EQ(more[1]->id(), 1);

    Run::Entry e;
    e.who = Run::Peer::_duplicate(two.in());
    e.others = some;
    Run::Entry_var got = registry->entry(e);
    EXPECT_EQ(got->who->id(), 1);
    ASSERT_EQ(got->others.length(), 2u);
    EXPECT_EQ(got->others[0]->id(), 2);

    registry->last(two.in());
    Run::Peer_var last = registry->last();
    EXPECT_EQ(last->id(), 2);
}

TEST_P(ForwardReferenceTest, StructureHoldingReferencesGoesIntoAnAny)
{
    Run::Entry e;
    e.who = Run::Peer::_duplicate(two.in());
    e.others.length(1);
    e.others[0] = Run::Peer::_duplicate(one.in());
    CORBA::Any any;
    any <<= e;
    const Run::Entry* back = nullptr;
    ASSERT_TRUE(any >>= back);
    EXPECT_EQ(back->who->id(), 2);
    EXPECT_EQ(back->others[0]->id(), 1);
    const Run::PeerList* list = nullptr;
    EXPECT_FALSE(any >>= list);
}

INSTANTIATE_TEST_SUITE_P(BothPaths, ForwardReferenceTest,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based));

} // namespace
