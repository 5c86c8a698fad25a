// The generated skeleton and client of data/Bank.idl served in process, on
// the colocated path and on the request path (built and run by the client
// generator's run test): values of every kind in every direction,
// exceptions, attributes, inherited and standard operations, TIE servants.
#include "BankS.hh"

#include <omg/MessagingS.hh>

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace {

// Fills a servant-side interface the way a user's servant would, and notes
// where its inout argument lived (to tell the two paths apart).
class AccountLogic {
public:
    int pings = 0;
    CORBA::Long total = 100;
    CORBA::String_var name = "start";
    const void* count_address = nullptr;

    void ping() { ++pings; }

    CORBA::Long deposit(const char* memo, CORBA::Long& count, Bank::Money_out fee)
    {
        count_address = &count;
        if (std::strcmp(memo, "refuse") == 0)
            throw Bank::Refused("closed");
        if (std::strcmp(memo, "deny") == 0)
            throw CORBA::NO_PERMISSION(7, CORBA::COMPLETED_NO);
        if (std::strcmp(memo, "crash") == 0)
            throw std::runtime_error("not a CORBA exception");
        count *= 2;
        fee.units = 1;
        fee.cents = 50;
        total += 10;
        return total;
    }

    Bank::Owner* swap(const Bank::Owner& o, Bank::Owner& io, Bank::Owner_out oo)
    {
        oo = new Bank::Owner(io);
        io = o;
        io.ids.length(io.ids.length() + 1);
        io.ids[io.ids.length() - 1] = 99;
        Bank::Owner* r = new Bank::Owner;
        r->name = "result";
        return r;
    }

    char* rename(const char* a, char*& b, CORBA::String_out c)
    {
        const std::string joined = std::string(a) + b;
        CORBA::string_free(b);
        b = CORBA::string_dup(joined.c_str());
        c = CORBA::string_dup("out");
        return CORBA::string_dup("ret");
    }

    CORBA::Any* echo(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c)
    {
        CORBA::Long v = 0;
        a >>= v;
        b <<= static_cast<CORBA::Long>(v + 1);
        c = new CORBA::Any(a);
        CORBA::Any* r = new CORBA::Any;
        *r <<= "r";
        return r;
    }

    Bank::Grid_slice* grid(const Bank::Grid a, Bank::Grid b, Bank::Grid c)
    {
        Bank::Grid_slice* r = Bank::Grid_alloc();
        for (int i = 0; i < 2; ++i) {
            for (int j = 0; j < 3; ++j) {
                c[i][j] = a[i][j] + b[i][j];
                b[i][j] = -b[i][j];
                r[i][j] = i * 10 + j;
            }
        }
        return r;
    }

    Bank::Base_ptr peer(Bank::Base_ptr a, Bank::Base_ptr& b, Bank::Base_out c)
    {
        c = Bank::Base::_duplicate(b);
        CORBA::release(b);
        b = Bank::Base::_duplicate(a);
        return Bank::Base::_duplicate(a);
    }

    CORBA::Long balance() { return total; }
    char* label() { return CORBA::string_dup(name.in()); }
    void label(const char* v) { name = v; }
};

// A servant derived from the skeleton, forwarding to the logic.
class AccountServant : public virtual POA_Bank::Account, public AccountLogic {
public:
    void ping() override { AccountLogic::ping(); }
    CORBA::Long deposit(const char* m, CORBA::Long& n, Bank::Money_out f) override
    {
        return AccountLogic::deposit(m, n, f);
    }
    Bank::Owner* swap(const Bank::Owner& o, Bank::Owner& io, Bank::Owner_out oo) override
    {
        return AccountLogic::swap(o, io, oo);
    }
    char* rename(const char* a, char*& b, CORBA::String_out c) override { return AccountLogic::rename(a, b, c); }
    CORBA::Any* echo(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c) override
    {
        return AccountLogic::echo(a, b, c);
    }
    Bank::Grid_slice* grid(const Bank::Grid a, Bank::Grid b, Bank::Grid c) override
    {
        return AccountLogic::grid(a, b, c);
    }
    Bank::Base_ptr peer(Bank::Base_ptr a, Bank::Base_ptr& b, Bank::Base_out c) override
    {
        return AccountLogic::peer(a, b, c);
    }
    CORBA::Long balance() override { return AccountLogic::balance(); }
    char* label() override { return AccountLogic::label(); }
    void label(const char* v) override { AccountLogic::label(v); }
};

class BaseServant : public virtual POA_Bank::Base {
public:
    void ping() override {}
};

class DispatchTest : public ::testing::TestWithParam<YV_Runtime::DispatchPath> {
protected:
    void SetUp() override
    {
        YV_Runtime::set_dispatch_path(GetParam());
        account = servant._this();
    }
    void TearDown() override { YV_Runtime::set_dispatch_path(YV_Runtime::colocated); }

    bool colocated() const { return GetParam() == YV_Runtime::colocated; }

    AccountServant servant;
    Bank::Account_var account;
};

TEST_P(DispatchTest, BasicStringAndFixedStructInEveryDirection)
{
    CORBA::Long count = 21;
    Bank::Money fee = {0, 0};
    EXPECT_EQ(account->deposit("memo", count, fee), 110);
    EXPECT_EQ(count, 42);
    EXPECT_EQ(fee.units, 1);
    EXPECT_EQ(fee.cents, 50);
    // The colocated body hands the servant the caller's own variable.
    EXPECT_EQ(servant.count_address == &count, colocated());
}

TEST_P(DispatchTest, ExceptionsReachTheCaller)
{
    CORBA::Long count = 1;
    Bank::Money fee = {0, 0};
    try {
        account->deposit("refuse", count, fee);
        FAIL() << "no exception";
    } catch (const Bank::Refused& e) {
        EXPECT_STREQ(e.reason.in(), "closed");
    }
    try {
        account->deposit("deny", count, fee);
        FAIL() << "no exception";
    } catch (const CORBA::NO_PERMISSION& e) {
        EXPECT_EQ(e.minor(), 7u);
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO);
    }
    try {
        account->deposit("crash", count, fee);
        FAIL() << "no exception";
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
    EXPECT_EQ(count, 1);
}

TEST_P(DispatchTest, VariableLengthStructures)
{
    Bank::Owner in;
    in.name = "in";
    in.ids.length(1);
    in.ids[0] = 7;
    Bank::Owner inout;
    inout.name = "inout";
    Bank::Owner_var out;
    Bank::Owner_var result = account->swap(in, inout, out);
    EXPECT_STREQ(result->name.in(), "result");
    EXPECT_STREQ(out->name.in(), "inout");
    EXPECT_STREQ(inout.name.in(), "in");
    ASSERT_EQ(inout.ids.length(), 2u);
    EXPECT_EQ(inout.ids[0], 7);
    EXPECT_EQ(inout.ids[1], 99);
    EXPECT_EQ(in.ids.length(), 1u);
}

TEST_P(DispatchTest, StringsInEveryDirection)
{
    CORBA::String_var b = CORBA::string_dup("-b");
    CORBA::String_var c = CORBA::string_dup("stale");
    CORBA::String_var r = account->rename("a", b.inout(), c.out());
    EXPECT_STREQ(r.in(), "ret");
    EXPECT_STREQ(b.in(), "a-b");
    EXPECT_STREQ(c.in(), "out");
}

TEST_P(DispatchTest, AnysInEveryDirection)
{
    CORBA::Any a;
    a <<= static_cast<CORBA::Long>(5);
    CORBA::Any b;
    CORBA::Any_var c;
    CORBA::Any_var r = account->echo(a, b, c.out());
    CORBA::Long v = 0;
    ASSERT_TRUE(b >>= v);
    EXPECT_EQ(v, 6);
    ASSERT_TRUE(c.in() >>= v);
    EXPECT_EQ(v, 5);
    const char* s = nullptr;
    ASSERT_TRUE(r.in() >>= s);
    EXPECT_STREQ(s, "r");
}

TEST_P(DispatchTest, ArraysInEveryDirection)
{
    Bank::Grid a = {{1, 2, 3}, {4, 5, 6}};
    Bank::Grid b = {{10, 20, 30}, {40, 50, 60}};
    Bank::Grid c = {};
    Bank::Grid_var r = account->grid(a, b, c);
    EXPECT_EQ(c[1][2], 66);
    EXPECT_EQ(b[0][1], -20);
    EXPECT_EQ(r[1][2], 12);
    EXPECT_EQ(a[0][0], 1);
}

TEST_P(DispatchTest, ObjectReferencesInEveryDirection)
{
    BaseServant other;
    Bank::Base_var a = other._this();
    Bank::Base_var b = Bank::Base::_duplicate(account.in());
    Bank::Base_var c;
    Bank::Base_var r = account->peer(a.in(), b.inout(), c.out());
    EXPECT_TRUE(r->_is_equivalent(a.in()));
    EXPECT_TRUE(b->_is_equivalent(a.in()));
    EXPECT_TRUE(c->_is_equivalent(account.in()));
    r->ping();
}

TEST_P(DispatchTest, AttributesAndInheritedOperations)
{
    EXPECT_EQ(account->balance(), 100);
    account->label("renamed");
    CORBA::String_var l = account->label();
    EXPECT_STREQ(l.in(), "renamed");
    account->ping();
    Bank::Base_var as_base = Bank::Base::_narrow(account.in());
    as_base->ping();
    EXPECT_EQ(servant.pings, 2);
}

TEST_P(DispatchTest, StandardOperations)
{
    EXPECT_TRUE(account->_is_a("IDL:Bank/Account:1.0"));
    EXPECT_TRUE(account->_is_a("IDL:Bank/Base:1.0"));
    EXPECT_TRUE(account->_is_a("IDL:omg.org/CORBA/Object:1.0"));
    EXPECT_FALSE(account->_is_a("IDL:Bank/Other:1.0"));
    EXPECT_FALSE(account->_non_existent());
    CORBA::Object_var plain = CORBA::Object::_duplicate(account.in());
    Bank::Account_var again = Bank::Account::_narrow(plain.in());
    EXPECT_TRUE(again->_is_equivalent(account.in()));
    CORBA::Object_ptr def = nullptr;
    YV_Cxx::ObjRefStreamable<CORBA::Object> s_def(&def);
    EXPECT_THROW(YV_Runtime::invoke(&servant, "_interface", nullptr, &s_def), CORBA::INTF_REPOS);
}

TEST_P(DispatchTest, DeactivatedAndUnknownTargets)
{
    EXPECT_THROW(YV_Runtime::invoke(&servant, "withdraw", nullptr, nullptr), CORBA::BAD_OPERATION);
    PortableServer::POA_var poa = servant._default_POA();
    PortableServer::ObjectId_var id = poa->servant_to_id(&servant);
    poa->deactivate_object(id.in());
    EXPECT_TRUE(account->_non_existent());
    EXPECT_THROW(account->balance(), CORBA::OBJECT_NOT_EXIST);
    // _this activates the servant again, under a new id.
    Bank::Account_var fresh = servant._this();
    EXPECT_EQ(fresh->balance(), 100);
    EXPECT_FALSE(fresh->_is_equivalent(account.in()));
}

TEST_P(DispatchTest, ArgumentsOfTheWrongShapeAreRefused)
{
    CORBA::Long result = 0;
    YV_Cxx::BasicStreamable<CORBA::Long> s_result(&result);
    // Too few arguments.
    EXPECT_THROW(YV_Runtime::invoke(&servant, "deposit", nullptr, &s_result), CORBA::SystemException);
    // An argument of another class than the skeleton expects.
    CORBA::Long not_a_string = 3;
    CORBA::Long count = 0;
    Bank::Money fee = {0, 0};
    YV_Cxx::BasicStreamable<CORBA::Long> s_memo(&not_a_string);
    YV_Cxx::BasicStreamable<CORBA::Long> s_count(&count);
    YV_Cxx::VarStreamable<Bank::Money> s_fee(&fee);
    YV_Cxx::CallArguments args;
    args.in(s_memo).inout(s_count).out(s_fee);
    EXPECT_THROW(YV_Runtime::invoke(&servant, "deposit", &args, &s_result), CORBA::MARSHAL);
}

TEST_P(DispatchTest, TieServantsForwardToTheirObject)
{
    static int deleted = 0;
    struct Counted : AccountLogic {
        ~Counted() { ++deleted; }
    };
    deleted = 0;
    {
        POA_Bank_Account_tie<Counted> tie(new Counted, true);
        Bank::Account_var ref = tie._this();
        CORBA::Long count = 2;
        Bank::Money fee = {0, 0};
        EXPECT_EQ(ref->deposit("tie", count, fee), 110);
        EXPECT_EQ(count, 4);
        ref->ping();
        EXPECT_EQ(tie._tied_object()->pings, 1);
        tie._tied_object(new Counted);
        EXPECT_EQ(deleted, 1);
        EXPECT_EQ(ref->balance(), 100);
    }
    EXPECT_EQ(deleted, 2);
    AccountLogic kept;
    {
        POA_Bank_Account_tie<AccountLogic> tie(kept);
        Bank::Account_var ref = tie._this();
        ref->label("kept");
    }
    EXPECT_STREQ(kept.name.in(), "kept");
}

TEST_P(DispatchTest, ReplyHandlerBaseSkeleton)
{
    class Handler : public virtual POA_Messaging::ReplyHandler {
    };
    Handler handler;
    Messaging::ReplyHandler_var ref = handler._this();
    EXPECT_TRUE(ref->_is_a("IDL:omg.org/Messaging/ReplyHandler:1.0"));
    EXPECT_FALSE(ref->_is_a("IDL:Bank/Base:1.0"));
    CORBA::Object_var plain = CORBA::Object::_duplicate(ref.in());
    Messaging::ReplyHandler_var narrowed = Messaging::ReplyHandler::_narrow(plain.in());
    EXPECT_TRUE(narrowed->_is_equivalent(ref.in()));
    EXPECT_EQ(POA_Messaging::ReplyHandler::_narrow(&handler), &handler);
    EXPECT_EQ(POA_Bank::Base::_narrow(&handler), nullptr);
    EXPECT_EQ(Bank::Base::_narrow(plain.in()), nullptr);
}

INSTANTIATE_TEST_SUITE_P(BothPaths, DispatchTest,
                         ::testing::Values(YV_Runtime::colocated, YV_Runtime::request_based),
                         [](const ::testing::TestParamInfo<YV_Runtime::DispatchPath>& info) {
                             return info.param == YV_Runtime::colocated ? std::string("Colocated")
                                                                        : std::string("RequestBased");
                         });

// A servant whose dispatch functions misbehave, for the runtime's own
// mapping of what escapes them.
class RawServant : public PortableServer::ServantBase {
public:
    _YV_DispatcherPtr _lookup_dispatcher(const char* operation) override
    {
        if (std::strcmp(operation, "throw_early") == 0)
            return [](ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus&) {
                throw std::runtime_error("before the call");
            };
        if (std::strcmp(operation, "throw_late") == 0)
            return [](ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus& status) {
                status = CORBA::COMPLETED_MAYBE;
                throw 42;
            };
        if (std::strcmp(operation, "no_reply") == 0)
            return [](ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus&) {};
        return PortableServer::ServantBase::_lookup_dispatcher(operation);
    }
};

TEST(RuntimeInvoke, MapsWhatEscapesADispatchFunction)
{
    RawServant raw;
    try {
        YV_Runtime::invoke(&raw, "throw_early", nullptr, nullptr);
        FAIL() << "no exception";
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO);
    }
    try {
        YV_Runtime::invoke(&raw, "throw_late", nullptr, nullptr);
        FAIL() << "no exception";
    } catch (const CORBA::UNKNOWN& e) {
        EXPECT_EQ(e.completed(), CORBA::COMPLETED_MAYBE);
    }
    EXPECT_THROW(YV_Runtime::invoke(&raw, "no_reply", nullptr, nullptr), CORBA::INTERNAL);
    EXPECT_THROW(YV_Runtime::invoke(nullptr, "_is_a", nullptr, nullptr), CORBA::OBJECT_NOT_EXIST);
}

TEST(RuntimeInvoke, ServantThatGoesAwayLeavesADeadReference)
{
    Bank::Base_var ref;
    {
        BaseServant gone;
        ref = gone._this();
        ref->ping();
    }
    EXPECT_TRUE(ref->_non_existent());
    EXPECT_THROW(ref->ping(), CORBA::OBJECT_NOT_EXIST);
}

} // namespace
