// A servant of an interface derived from CORBA::Policy, activated and
// called through its reference on both dispatch paths: its own members,
// the inherited ones, and policies passed as references; and a TIE of it.
#include "QuotaS.hh"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

const CORBA::PolicyType quota_type = 0x51;

class QuotaServant : public virtual POA_Limits::Quota {
public:
    explicit QuotaServant(CORBA::Long limit) : m_limit(limit) {}

    CORBA::Long limit() override { return m_limit; }
    void limit(CORBA::Long v) override { m_limit = v; }
    CORBA::Policy_ptr combine(CORBA::Policy_ptr other) override { return CORBA::Policy::_duplicate(other); }

    CORBA::PolicyType policy_type() override { return quota_type; }
    CORBA::Policy_ptr copy() override
    {
        m_copies.push_back(std::make_unique<QuotaServant>(m_limit));
        return m_copies.back()->_this();
    }
    void destroy() override { destroyed = true; }

    bool destroyed = false;

private:
    CORBA::Long m_limit;
    std::vector<std::unique_ptr<QuotaServant>> m_copies;
};

// The same served through the TIE class, which takes Policy's members from
// the runtime's TIE class of Policy.
class QuotaImpl {
public:
    CORBA::Long limit() { return m_limit; }
    void limit(CORBA::Long v) { m_limit = v; }
    CORBA::Policy_ptr combine(CORBA::Policy_ptr other) { return CORBA::Policy::_duplicate(other); }
    CORBA::PolicyType policy_type() { return quota_type + 1; }
    CORBA::Policy_ptr copy() { return CORBA::Policy::_nil(); }
    void destroy() { destroyed = true; }

    bool destroyed = false;

private:
    CORBA::Long m_limit = 0;
};

class QuotaPolicyTest : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override { YV_Runtime::set_dispatch_path(GetParam()); }
    void TearDown() override { YV_Runtime::set_dispatch_path(YV_Runtime::colocated); }

    QuotaServant servant{3};
};

TEST_P(QuotaPolicyTest, ServedThroughItsReference)
{
    Limits::Quota_var quota = servant._this();
    quota->limit(7);
    EXPECT_EQ(quota->limit(), 7);
    EXPECT_EQ(quota->policy_type(), quota_type);

    CORBA::Policy_var as_policy = CORBA::Policy::_narrow(quota.in());
    ASSERT_FALSE(CORBA::is_nil(as_policy.in()));
    EXPECT_EQ(as_policy->policy_type(), quota_type);

    // The copy comes back as a CORBA::Policy reference.
    CORBA::Policy_var copy = quota->copy();
    ASSERT_FALSE(CORBA::is_nil(copy.in()));
    EXPECT_EQ(copy->policy_type(), quota_type);
    Limits::Quota_var copy_quota = Limits::Quota::_narrow(copy.in());
    ASSERT_FALSE(CORBA::is_nil(copy_quota.in()));
    EXPECT_EQ(copy_quota->limit(), 7);

    CORBA::Policy_var back = quota->combine(copy.in());
    ASSERT_FALSE(CORBA::is_nil(back.in()));
    EXPECT_EQ(back->policy_type(), quota_type);

    EXPECT_FALSE(servant.destroyed);
    quota->destroy();
    EXPECT_TRUE(servant.destroyed);
}

TEST_P(QuotaPolicyTest, TiedObjectServesTheInheritedMembers)
{
    QuotaImpl impl;
    POA_Limits_Quota_tie<QuotaImpl> tie(impl);
    Limits::Quota_var quota = tie._this();
    quota->limit(4);
    EXPECT_EQ(impl.limit(), 4);
    EXPECT_EQ(quota->policy_type(), quota_type + 1);
    CORBA::Policy_var copy = quota->copy();
    EXPECT_TRUE(CORBA::is_nil(copy.in()));
    quota->destroy();
    EXPECT_TRUE(impl.destroyed);
}

INSTANTIATE_TEST_SUITE_P(BothPaths, QuotaPolicyTest,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based));

} // namespace
