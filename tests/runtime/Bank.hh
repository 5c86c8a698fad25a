// A client header written by hand in the shape of the standard mapping, for
// this IDL:
//
//   module Bank {
//     struct Money { long units; short cents; };             // fixed length
//     struct Owner { string name; sequence<long> ids; };      // variable length
//     typedef sequence<string> Names;
//     typedef long Grid[2][3];
//     exception Refused { string reason; };
//     interface Base { void ping(); };
//     interface Account : Base {
//       long deposit(in string memo, inout long count, out Money fee) raises (Refused);
//       Owner swap(in Owner o, inout Owner io, out Owner oo);
//       string rename(in string a, inout string b, out string c);
//       any echo(in any a, inout any b, out any c);
//       Grid grid(in Grid a, inout Grid b, out Grid c);
//       Base peer(in Base a, inout Base b, out Base c);
//       readonly attribute long balance;
//       attribute string label;
//     };
//   };
#ifndef BANK_HH
#define BANK_HH

#include <omg/CORBA.hh>
#include <zantic_sys/yvcxx.h>

namespace Bank {

struct Money {
    CORBA::Long units;
    CORBA::Short cents;
};
typedef YV_Cxx::Fix_var<Money> Money_var;
typedef Money& Money_out;

struct Owner {
    CORBA::String_var name;
    YV_Cxx::UnboundedSequence<CORBA::Long> ids;
};
typedef YV_Cxx::Var_var<Owner> Owner_var;
typedef YV_Cxx::Var_out<Owner> Owner_out;

typedef YV_Cxx::UnboundedSequence<CORBA::String_var> Names;
typedef YV_Cxx::Seq_var<Names> Names_var;
typedef YV_Cxx::Seq_out<Names> Names_out;

typedef CORBA::Long Grid[2][3];
typedef CORBA::Long Grid_slice[3];
typedef YV_Cxx::Array_var<Grid> Grid_var;
inline Grid_slice* Grid_alloc() { return YV_Cxx::array_alloc<Grid>(); }
inline void Grid_free(Grid_slice* a) { YV_Cxx::array_free<Grid>(a); }

class Refused : public CORBA::UserException {
public:
    Refused() = default;
    explicit Refused(const char* r) : reason(r) {}
    const char* _name() const override { return "Refused"; }
    const char* _rep_id() const override { return "IDL:Bank/Refused:1.0"; }
    void _raise() const override { throw *this; }

    CORBA::String_var reason;
};

class Base;
typedef Base* Base_ptr;
typedef YV_Cxx::ObjRef_var<Base> Base_var;
typedef YV_Cxx::ObjRef_out<Base> Base_out;

class Base : public virtual CORBA::Object {
public:
    static Base_ptr _duplicate(Base_ptr p);
    static Base_ptr _nil() { return nullptr; }
    static Base_ptr _narrow(CORBA::Object_ptr obj);
    static const YV_FWString _yv_fw_type_id;

    virtual void ping() = 0;

protected:
    Base() = default;
};

class YV_Gen_DynamicProxy_Base : public virtual Base {
public:
    explicit YV_Gen_DynamicProxy_Base(CORBA::Object_ptr target) : CORBA::Object(target) {}
    void ping() override;

protected:
    YV_Gen_DynamicProxy_Base() = default;
};

class Account;
typedef Account* Account_ptr;
typedef YV_Cxx::ObjRef_var<Account> Account_var;
typedef YV_Cxx::ObjRef_out<Account> Account_out;

class Account : public virtual Base {
public:
    static Account_ptr _duplicate(Account_ptr p);
    static Account_ptr _nil() { return nullptr; }
    static Account_ptr _narrow(CORBA::Object_ptr obj);
    static const YV_FWString _yv_fw_type_id;

    virtual CORBA::Long deposit(const char* memo, CORBA::Long& count, Money_out fee) = 0;
    virtual Owner* swap(const Owner& o, Owner& io, Owner_out oo) = 0;
    virtual char* rename(const char* a, char*& b, CORBA::String_out c) = 0;
    virtual CORBA::Any* echo(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c) = 0;
    virtual Grid_slice* grid(const Grid a, Grid b, Grid c) = 0;
    virtual Base_ptr peer(Base_ptr a, Base_ptr& b, Base_out c) = 0;
    virtual CORBA::Long balance() = 0;
    virtual char* label() = 0;
    virtual void label(const char* _yvvar_label) = 0;

protected:
    Account() = default;
};

class YV_Gen_DynamicProxy_Account : public virtual Account, public virtual YV_Gen_DynamicProxy_Base {
public:
    explicit YV_Gen_DynamicProxy_Account(CORBA::Object_ptr target) : CORBA::Object(target) {}

    CORBA::Long deposit(const char* memo, CORBA::Long& count, Money_out fee) override;
    Owner* swap(const Owner& o, Owner& io, Owner_out oo) override;
    char* rename(const char* a, char*& b, CORBA::String_out c) override;
    CORBA::Any* echo(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c) override;
    Grid_slice* grid(const Grid a, Grid b, Grid c) override;
    Base_ptr peer(Base_ptr a, Base_ptr& b, Base_out c) override;
    CORBA::Long balance() override;
    char* label() override;
    void label(const char* _yvvar_label) override;
};

} // namespace Bank

#endif
