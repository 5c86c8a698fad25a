// A small server for bank.idl: a branch that opens checking and savings
// accounts, activated in the root POA and called through its object
// references. Every call below goes through the generated client proxy and
// the generated skeleton's dispatch function.
//
// Built and run by scripts/example.sh.
#include "bankS.hh"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

Bank::Money money(CORBA::LongLong amount, const char* currency)
{
    Bank::Money m;
    m.amount = amount;
    m.currency = currency;
    return m;
}

// "12.34 EUR" for an amount of 1234 cents.
std::string show(const Bank::Money& m)
{
    char text[64];
    const long long cents = m.amount < 0 ? -m.amount : m.amount;
    std::snprintf(text, sizeof text, "%s%lld.%02lld %s", m.amount < 0 ? "-" : "", cents / 100, cents % 100,
                  m.currency.in());
    return text;
}

// What every kind of account does. `Skeleton` is the account's POA class.
template <class Skeleton>
class AccountImpl : public virtual Skeleton {
public:
    AccountImpl(std::string id, std::string holder) : id_(std::move(id)), holder_(std::move(holder)) {}

    char* id() override { return CORBA::string_dup(id_.c_str()); }
    char* holder() override { return CORBA::string_dup(holder_.c_str()); }
    CORBA::Boolean closed() override { return closed_; }
    char* nickname() override { return CORBA::string_dup(nickname_.c_str()); }
    void nickname(const char* name) override { nickname_ = name; }

    Bank::Money* balance() override
    {
        check_open();
        return new Bank::Money(money(balance_, "EUR"));
    }

    void deposit(const Bank::Money& value, const char* memo) override
    {
        check(value);
        book(value.amount, memo);
    }

    void withdraw(const Bank::Money& value, const char* memo) override
    {
        check(value);
        if (balance_ + credit() < value.amount)
            throw Bank::InsufficientFunds(money(balance_ + credit(), "EUR"), value);
        book(-value.amount, memo);
    }

    Bank::Statement* last_transactions(CORBA::ULong count) override
    {
        const std::size_t first = history_.size() > count ? history_.size() - count : 0;
        Bank::Statement* statement = new Bank::Statement;
        statement->length(static_cast<CORBA::ULong>(history_.size() - first));
        for (std::size_t i = first; i < history_.size(); ++i)
            (*statement)[static_cast<CORBA::ULong>(i - first)] = history_[i];
        return statement;
    }

    void close(Bank::Money_out paid_out) override
    {
        check_open();
        paid_out = new Bank::Money(money(balance_, "EUR"));
        balance_ = 0;
        closed_ = true;
    }

protected:
    // How far the balance may go below zero.
    virtual CORBA::LongLong credit() const { return 0; }

    CORBA::LongLong balance_ = 0;

private:
    void check_open() const
    {
        if (closed_)
            throw Bank::AccountClosed();
    }

    void check(const Bank::Money& value) const
    {
        check_open();
        if (std::string(value.currency.in()) != "EUR")
            throw Bank::CurrencyMismatch("EUR");
    }

    void book(CORBA::LongLong amount, const char* memo)
    {
        balance_ += amount;
        Bank::Transaction t;
        t.serial = history_.size() + 1;
        t.value = money(amount, "EUR");
        t.memo = memo;
        history_.push_back(t);
    }

    std::string id_, holder_, nickname_;
    bool closed_ = false;
    std::vector<Bank::Transaction> history_;
};

class CheckingAccountImpl : public AccountImpl<POA_Bank::CheckingAccount> {
public:
    using AccountImpl::AccountImpl;

    Bank::Money* overdraft_limit() override { return new Bank::Money(limit_); }
    void overdraft_limit(const Bank::Money& limit) override { limit_ = limit; }

    // A cheque clears when the account covers it; `value` comes back as
    // the amount actually booked.
    CORBA::Boolean cheque_cleared(CORBA::ULongLong cheque, Bank::Money& value) override
    {
        const std::string memo = "cheque " + std::to_string(cheque);
        try {
            withdraw(value, memo.c_str());
            return true;
        } catch (const Bank::InsufficientFunds&) {
            value.amount = 0;
            return false;
        }
    }

private:
    CORBA::LongLong credit() const override { return limit_.amount; }

    Bank::Money limit_ = money(0, "EUR");
};

class SavingsAccountImpl : public AccountImpl<POA_Bank::SavingsAccount> {
public:
    SavingsAccountImpl(std::string id, std::string holder, CORBA::Float rate)
        : AccountImpl(std::move(id), std::move(holder)), rate_(rate)
    {
    }

    CORBA::Float interest_rate() override { return rate_; }
    Bank::Money* projected_interest(CORBA::UShort months) override
    {
        return new Bank::Money(money(static_cast<CORBA::LongLong>(balance_ * rate_ * months / 12), "EUR"));
    }

private:
    CORBA::Float rate_;
};

class BranchImpl : public virtual POA_Bank::Branch {
public:
    explicit BranchImpl(std::string name) : name_(std::move(name)) {}

    char* name() override { return CORBA::string_dup(name_.c_str()); }

    Bank::CheckingAccount_ptr open_checking(const char* holder, const Bank::Money& limit) override
    {
        auto account = std::make_unique<CheckingAccountImpl>(next_id("CHK"), holder);
        account->overdraft_limit(limit);
        Bank::CheckingAccount_ptr ref = account->_this();
        accounts_.push_back(Opened{std::move(account), holder, Bank::Account::_duplicate(ref)});
        return ref;
    }

    Bank::SavingsAccount_ptr open_savings(const char* holder, CORBA::Float rate) override
    {
        auto account = std::make_unique<SavingsAccountImpl>(next_id("SAV"), holder, rate);
        Bank::SavingsAccount_ptr ref = account->_this();
        accounts_.push_back(Opened{std::move(account), holder, Bank::Account::_duplicate(ref)});
        return ref;
    }

    Bank::Account_ptr find(const char* id) override
    {
        for (const Opened& opened : accounts_) {
            CORBA::String_var its_id = opened.ref->id();
            if (std::string(its_id.in()) == id)
                return Bank::Account::_duplicate(opened.ref.in());
        }
        throw Bank::UnknownAccount(id);
    }

    Bank::AccountIds* accounts_of(const char* holder) override
    {
        Bank::AccountIds* ids = new Bank::AccountIds;
        for (const Opened& opened : accounts_) {
            if (opened.holder == holder) {
                ids->length(ids->length() + 1);
                (*ids)[ids->length() - 1] = opened.ref->id();
            }
        }
        return ids;
    }

    // Both legs go through the accounts' references, as a remote branch's
    // would.
    void transfer(Bank::Account_ptr from, Bank::Account_ptr to, const Bank::Money& value) override
    {
        from->withdraw(value, "transfer out");
        to->deposit(value, "transfer in");
    }

private:
    struct Opened {
        std::unique_ptr<PortableServer::ServantBase> servant;
        std::string holder;
        Bank::Account_var ref;
    };

    std::string next_id(const char* kind) { return kind + std::string("-") + std::to_string(accounts_.size() + 1); }

    std::string name_;
    std::vector<Opened> accounts_;
};

void print_balance(Bank::Account_ptr account)
{
    CORBA::String_var id = account->id();
    Bank::Money_var balance = account->balance();
    std::printf("  %s balance %s\n", id.in(), show(balance.in()).c_str());
}

} // namespace

int main(int argc, char** argv)
{
    CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
    CORBA::Object_var obj = orb->resolve_initial_references("RootPOA");
    PortableServer::POA_var poa = PortableServer::POA::_narrow(obj.in());
    PortableServer::POAManager_var manager = poa->the_POAManager();
    manager->activate();

    BranchImpl servant("Main Street");
    Bank::Branch_var branch = servant._this();
    CORBA::String_var branch_name = branch->name();
    std::printf("branch \"%s\" is active\n", branch_name.in());

    Bank::CheckingAccount_var checking = branch->open_checking("Ada", money(5000, "EUR"));
    Bank::SavingsAccount_var savings = branch->open_savings("Ada", 0.03f);
    checking->nickname("everyday");
    CORBA::String_var id = checking->id();
    CORBA::String_var nickname = checking->nickname();
    std::printf("opened %s (\"%s\") and a savings account at %.1f%%\n", id.in(), nickname.in(),
                savings->interest_rate() * 100);

    checking->deposit(money(120000, "EUR"), "salary");
    savings->deposit(money(1000000, "EUR"), "inheritance");
    std::printf("deposits made:\n");
    print_balance(checking.in());
    print_balance(savings.in());

    try {
        checking->withdraw(money(200000, "EUR"), "new car");
    } catch (const Bank::InsufficientFunds& e) {
        std::printf("withdrawal of %s refused: only %s available\n", show(e.requested).c_str(),
                    show(e.available).c_str());
    }
    try {
        savings->deposit(money(100, "USD"), "souvenir");
    } catch (const Bank::CurrencyMismatch& e) {
        std::printf("deposit refused: the account keeps %s\n", e.expected.in());
    }

    Bank::Money cheque = money(124000, "EUR");
    CORBA::Boolean cleared = checking->cheque_cleared(17, cheque);
    std::printf("cheque 17 %s, %s booked (overdraft allowed)\n", cleared ? "cleared" : "bounced",
                show(cheque).c_str());

    branch->transfer(savings.in(), checking.in(), money(50000, "EUR"));
    std::printf("after a transfer from savings to checking:\n");
    print_balance(checking.in());
    print_balance(savings.in());
    Bank::Money_var interest = savings->projected_interest(12);
    std::printf("  interest projected for a year: %s\n", show(interest.in()).c_str());

    Bank::Statement_var statement = checking->last_transactions(3);
    std::printf("last %u transactions of %s:\n", statement->length(), id.in());
    for (CORBA::ULong i = 0; i < statement->length(); ++i) {
        const Bank::Transaction& t = statement[i];
        std::printf("  #%llu %s %s\n", static_cast<unsigned long long>(t.serial), show(t.value).c_str(),
                    t.memo.in());
    }

    Bank::AccountIds_var ids = branch->accounts_of("Ada");
    std::printf("Ada holds %u accounts:", ids->length());
    for (CORBA::ULong i = 0; i < ids->length(); ++i)
        std::printf(" %s", ids[i].in());
    std::printf("\n");

    try {
        Bank::Account_var missing = branch->find("CHK-99");
    } catch (const Bank::UnknownAccount& e) {
        std::printf("no account %s at this branch\n", e.id.in());
    }

    Bank::Account_var found = branch->find("SAV-2");
    Bank::Money_var paid_out;
    found->close(paid_out.out());
    std::printf("closed SAV-2, paid out %s; closed: %s\n", show(paid_out.in()).c_str(),
                found->closed() ? "yes" : "no");
    try {
        Bank::Money_var none = found->balance();
    } catch (const Bank::AccountClosed&) {
        std::printf("SAV-2 refuses requests now that it is closed\n");
    }

    orb->destroy();
    return 0;
}
