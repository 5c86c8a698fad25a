// A small server for bank.idl: a branch that opens checking and savings
// accounts, activated in the root POA and served over IIOP. It writes the
// branch's reference (an IOR string) to the file its command line names and
// serves until it gets SIGTERM or SIGINT; bank_client.cpp calls it.
//
//   bank_server [-ORB options] <reference file>
//
// Built and run by scripts/example.sh.
#include "bankS.hh"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <memory>
#include <pthread.h>
#include <string>
#include <thread>
#include <vector>

namespace {

Bank::Money money(CORBA::LongLong amount, const char* currency)
{
    Bank::Money m;
    m.amount = amount;
    m.currency = currency;
    return m;
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

} // namespace

int main(int argc, char** argv)
{
    // SIGTERM and SIGINT go to one thread, which shuts the ORB down; every
    // thread made from here on inherits the mask.
    sigset_t stop_signals;
    sigemptyset(&stop_signals);
    sigaddset(&stop_signals, SIGTERM);
    sigaddset(&stop_signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &stop_signals, nullptr);

    CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: bank_server [-ORB options] <reference file>\n");
        orb->destroy();
        return 2;
    }
    CORBA::Object_var obj = orb->resolve_initial_references("RootPOA");
    PortableServer::POA_var poa = PortableServer::POA::_narrow(obj.in());
    PortableServer::POAManager_var manager = poa->the_POAManager();

    BranchImpl servant("Main Street");
    Bank::Branch_var branch = servant._this();
    CORBA::String_var ior = orb->object_to_string(branch.in());
    {
        // Written aside and renamed, so that a reader never sees half of it.
        const std::string partial = std::string(argv[1]) + ".partial";
        std::ofstream out(partial);
        out << ior.in() << "\n";
        out.close();
        if (!out || std::rename(partial.c_str(), argv[1]) != 0) {
            std::fprintf(stderr, "bank_server: cannot write %s\n", argv[1]);
            orb->destroy();
            return 1;
        }
    }
    manager->activate();
    std::printf("branch \"Main Street\" serves; its reference is in %s\n", argv[1]);
    std::fflush(stdout);

    std::thread stopper([&orb, &stop_signals] {
        int signal = 0;
        sigwait(&stop_signals, &signal);
        orb->shutdown(false);
    });
    orb->run();
    stopper.join();
    orb->destroy();
    std::printf("branch closed\n");
    return 0;
}
