// The client side of Bank.hh: type ids, narrowing, and proxies that have
// each operation served in process. Each proxy binds streamables to its
// own arguments (borrowing the caller's out slots) and calls _yv_invoke.
#include "Bank.hh"

#include <zantic_sys/YV_Cxx/narrow_reference.h>

namespace Bank {

const YV_FWString Base::_yv_fw_type_id("IDL:Bank/Base:1.0");
const YV_FWString Account::_yv_fw_type_id("IDL:Bank/Account:1.0");

Base_ptr Base::_duplicate(Base_ptr p)
{
    if (p != nullptr)
        p->_yv_add_ref();
    return p;
}

Base_ptr Base::_narrow(CORBA::Object_ptr obj)
{
    return YV_Cxx::narrow_reference<Base, YV_Gen_DynamicProxy_Base>(obj);
}

Account_ptr Account::_duplicate(Account_ptr p)
{
    if (p != nullptr)
        p->_yv_add_ref();
    return p;
}

Account_ptr Account::_narrow(CORBA::Object_ptr obj)
{
    return YV_Cxx::narrow_reference<Account, YV_Gen_DynamicProxy_Account>(obj);
}

void YV_Gen_DynamicProxy_Base::ping()
{
    _yv_invoke("ping", nullptr, nullptr);
}

CORBA::Long YV_Gen_DynamicProxy_Account::deposit(const char* memo, CORBA::Long& count, Money_out fee)
{
    YV_Cxx::StringStreamable s_memo(&memo);
    YV_Cxx::BasicStreamable<CORBA::Long> s_count(&count);
    YV_Cxx::VarStreamable<Money> s_fee(&fee);
    CORBA::Long result = 0;
    YV_Cxx::BasicStreamable<CORBA::Long> s_result(&result);
    YV_Cxx::CallArguments args;
    args.in(s_memo).inout(s_count).out(s_fee);
    _yv_invoke("deposit", &args, &s_result);
    return result;
}

Owner* YV_Gen_DynamicProxy_Account::swap(const Owner& o, Owner& io, Owner_out oo)
{
    YV_Cxx::VarStreamable<Owner> s_o(&o);
    YV_Cxx::VarStreamable<Owner> s_io(&io);
    YV_Cxx::VarStreamable<Owner> s_oo(&oo);
    Owner* result = nullptr;
    YV_Cxx::VarStreamable<Owner> s_result(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments args;
    args.in(s_o).inout(s_io).out(s_oo);
    _yv_invoke("swap", &args, &s_result);
    return result;
}

char* YV_Gen_DynamicProxy_Account::rename(const char* a, char*& b, CORBA::String_out c)
{
    YV_Cxx::StringStreamable s_a(&a);
    YV_Cxx::StringStreamable s_b(&b, YV_Cxx::usage_borrow);
    YV_Cxx::StringStreamable s_c(&c);
    char* result = nullptr;
    YV_Cxx::StringStreamable s_result(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments args;
    args.in(s_a).inout(s_b).out(s_c);
    _yv_invoke("rename", &args, &s_result);
    return result;
}

CORBA::Any* YV_Gen_DynamicProxy_Account::echo(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c)
{
    YV_Cxx::AnyStreamable s_a(&a);
    YV_Cxx::AnyStreamable s_b(&b);
    YV_Cxx::AnyStreamable s_c(&c);
    CORBA::Any* result = nullptr;
    YV_Cxx::AnyStreamable s_result(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments args;
    args.in(s_a).inout(s_b).out(s_c);
    _yv_invoke("echo", &args, &s_result);
    return result;
}

Grid_slice* YV_Gen_DynamicProxy_Account::grid(const Grid a, Grid b, Grid c)
{
    YV_Cxx::ArrayStreamable<Grid> s_a(a);
    YV_Cxx::ArrayStreamable<Grid> s_b(b);
    YV_Cxx::ArrayStreamable<Grid> s_c(c);
    Grid_slice* result = nullptr;
    YV_Cxx::ArrayStreamable<Grid> s_result(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments args;
    args.in(s_a).inout(s_b).out(s_c);
    _yv_invoke("grid", &args, &s_result);
    return result;
}

Base_ptr YV_Gen_DynamicProxy_Account::peer(Base_ptr a, Base_ptr& b, Base_out c)
{
    YV_Cxx::ObjRefStreamable<Base> s_a(&a, YV_Cxx::usage_borrow);
    YV_Cxx::ObjRefStreamable<Base> s_b(&b, YV_Cxx::usage_borrow);
    YV_Cxx::ObjRefStreamable<Base> s_c(&c);
    Base_ptr result = nullptr;
    YV_Cxx::ObjRefStreamable<Base> s_result(&result, YV_Cxx::usage_borrow);
    YV_Cxx::CallArguments args;
    args.in(s_a).inout(s_b).out(s_c);
    _yv_invoke("peer", &args, &s_result);
    return result;
}

CORBA::Long YV_Gen_DynamicProxy_Account::balance()
{
    CORBA::Long result = 0;
    YV_Cxx::BasicStreamable<CORBA::Long> s_result(&result);
    _yv_invoke("_get_balance", nullptr, &s_result);
    return result;
}

char* YV_Gen_DynamicProxy_Account::label()
{
    char* result = nullptr;
    YV_Cxx::StringStreamable s_result(&result, YV_Cxx::usage_borrow);
    _yv_invoke("_get_label", nullptr, &s_result);
    return result;
}

void YV_Gen_DynamicProxy_Account::label(const char* _yvvar_label)
{
    YV_Cxx::StringStreamable s_value(&_yvvar_label);
    YV_Cxx::CallArguments args;
    args.in(s_value);
    _yv_invoke("_set_label", &args, nullptr);
}

} // namespace Bank
