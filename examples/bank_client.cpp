// A client of bank_server.cpp: reads the branch's reference from a file,
// opens accounts and calls them over IIOP, and prints what each call did,
// including a withdrawal refused with the IDL exception InsufficientFunds.
//
//   bank_client [-ORB options] <reference file>
//
// Built and run by scripts/example.sh.
#include "bank.hh"

#include <cstdio>
#include <fstream>
#include <string>

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
    if (argc != 2) {
        std::fprintf(stderr, "usage: bank_client [-ORB options] <reference file>\n");
        orb->destroy();
        return 2;
    }
    std::string ior;
    std::ifstream in(argv[1]);
    if (!std::getline(in, ior)) {
        std::fprintf(stderr, "bank_client: cannot read %s\n", argv[1]);
        orb->destroy();
        return 1;
    }
    CORBA::Object_var obj = orb->string_to_object(ior.c_str());
    Bank::Branch_var branch = Bank::Branch::_narrow(obj.in());
    if (CORBA::is_nil(branch.in())) {
        std::fprintf(stderr, "bank_client: %s names no branch\n", argv[1]);
        orb->destroy();
        return 1;
    }
    CORBA::String_var branch_name = branch->name();
    std::printf("branch \"%s\" answers\n", branch_name.in());

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
