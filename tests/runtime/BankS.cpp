// The skeleton implementation of BankS.hh, written by hand in exactly the
// shape the skeleton generator writes (raises enforcement on): standard
// members, dispatch tables and dispatch functions with both bodies.

#include "BankS.hh"
#include <zantic_sys/tc_pod_structs.h>
#include <zantic_sys/nmval.h>

POA_Bank::Base::~Base()
{
}

Bank::Base_ptr
POA_Bank::Base::_this()
{
    CORBA::Object_var proxy = _this_impl(Bank::Base::_yv_fw_type_id.c_str());

    return new Bank::YV_Gen_DynamicProxy_Base(proxy);
}

CORBA::Boolean
POA_Bank::Base::_yv_is_a(
    const YV_FWString& _id
)
{
    CORBA::Boolean result = 0;

    if (_id == Bank::Base::_yv_fw_type_id) result = 1;
    
return result;
}

CORBA::RepositoryId
POA_Bank::Base::_primary_interface(
    const PortableServer::ObjectId& /* oid */,
    PortableServer::POA_ptr /* poa */
)
{
    return CORBA::string_dup(Bank::Base::_yv_fw_type_id.c_str());
}

char POA_Bank::Base::_narrow_tag = 0;

void*
POA_Bank::Base::_local_narrow(
    const char* tag
)
{
    if (tag == &POA_Bank::Base::_narrow_tag)
        return this;
    return PortableServer::ServantBase::_local_narrow(tag);
}

POA_Bank::Base*
POA_Bank::Base::_narrow(
    PortableServer::ServantBase* _poa
)
{
    POA_Bank::Base* _result = 0;

    if (_poa != 0)
    {
        _result = YV_STATIC_CAST(POA_Bank::Base*, _poa->_local_narrow(&POA_Bank::Base::_narrow_tag));

    }
    return _result;
}


PortableServer::ServantBase::_YV_DispatcherPtr
POA_Bank::Base::_lookup_dispatcher(
    const char* operation
)
{
    static YV_Cxx_HashEntry _entry_1_0 = 
    {
        "ping",
        POA_Bank::Base::ping_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_2_1 = 
    {
        "_non_existent",
        PortableServer::ServantBase::_non_existent_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_2_0 = 
    {
        "_is_a",
        PortableServer::ServantBase::_is_a_dispatch,
        &_entry_2_1
    };
    static YV_Cxx_HashEntry _entry_5_0 = 
    {
        "_interface",
        PortableServer::ServantBase::_get_interface_dispatch,
        0
    };

    static YV_Cxx_HashEntry *_raw_table[] = 
    {
        0, &_entry_1_0, &_entry_2_0, 0, 0, &_entry_5_0, 
        0, 0
    };


    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =
        YV_Cxx_StaticDispatchHashTable::lookup(
            operation,
            _raw_table,
            8
        );
    return dispatcher;
}

void
POA_Bank::Base::ping_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Base* _yvl_intf = Base::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_intf->ping();
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(0, 0);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            CORBA::Any _yvl_retn_any(CORBA::_tc_void, 0);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_intf->ping();
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}


POA_Bank::Account::~Account()
{
}

Bank::Account_ptr
POA_Bank::Account::_this()
{
    CORBA::Object_var proxy = _this_impl(Bank::Account::_yv_fw_type_id.c_str());

    return new Bank::YV_Gen_DynamicProxy_Account(proxy);
}

CORBA::Boolean
POA_Bank::Account::_yv_is_a(
    const YV_FWString& _id
)
{
    CORBA::Boolean result = 0;

    if (_id == Bank::Account::_yv_fw_type_id) result = 1;
else     if (_id == Bank::Base::_yv_fw_type_id) result = 1;
    
return result;
}

CORBA::RepositoryId
POA_Bank::Account::_primary_interface(
    const PortableServer::ObjectId& /* oid */,
    PortableServer::POA_ptr /* poa */
)
{
    return CORBA::string_dup(Bank::Account::_yv_fw_type_id.c_str());
}

char POA_Bank::Account::_narrow_tag = 0;

void*
POA_Bank::Account::_local_narrow(
    const char* tag
)
{
    if (tag == &POA_Bank::Account::_narrow_tag)
        return this;
    if (void* base = POA_Bank::Base::_local_narrow(tag))
        return base;
    return 0;
}

POA_Bank::Account*
POA_Bank::Account::_narrow(
    PortableServer::ServantBase* _poa
)
{
    POA_Bank::Account* _result = 0;

    if (_poa != 0)
    {
        _result = YV_STATIC_CAST(POA_Bank::Account*, _poa->_local_narrow(&POA_Bank::Account::_narrow_tag));

    }
    return _result;
}


PortableServer::ServantBase::_YV_DispatcherPtr
POA_Bank::Account::_lookup_dispatcher(
    const char* operation
)
{
    static YV_Cxx_HashEntry _entry_1_0 = 
    {
        "grid",
        POA_Bank::Account::grid_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_2_1 = 
    {
        "_non_existent",
        PortableServer::ServantBase::_non_existent_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_2_0 = 
    {
        "_is_a",
        PortableServer::ServantBase::_is_a_dispatch,
        &_entry_2_1
    };
    static YV_Cxx_HashEntry _entry_3_1 = 
    {
        "_set_label",
        POA_Bank::Account::_set_label_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_3_0 = 
    {
        "rename",
        POA_Bank::Account::rename_yvgen_dispatch,
        &_entry_3_1
    };
    static YV_Cxx_HashEntry _entry_4_0 = 
    {
        "echo",
        POA_Bank::Account::echo_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_5_1 = 
    {
        "deposit",
        POA_Bank::Account::deposit_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_5_0 = 
    {
        "_interface",
        PortableServer::ServantBase::_get_interface_dispatch,
        &_entry_5_1
    };
    static YV_Cxx_HashEntry _entry_7_0 = 
    {
        "_get_label",
        POA_Bank::Account::_get_label_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_9_1 = 
    {
        "ping",
        POA_Bank::Base::ping_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_9_0 = 
    {
        "peer",
        POA_Bank::Account::peer_yvgen_dispatch,
        &_entry_9_1
    };
    static YV_Cxx_HashEntry _entry_13_0 = 
    {
        "_get_balance",
        POA_Bank::Account::_get_balance_yvgen_dispatch,
        0
    };
    static YV_Cxx_HashEntry _entry_14_0 = 
    {
        "swap",
        POA_Bank::Account::swap_yvgen_dispatch,
        0
    };

    static YV_Cxx_HashEntry *_raw_table[] = 
    {
        0, &_entry_1_0, &_entry_2_0, &_entry_3_0, &_entry_4_0, &_entry_5_0, 
        0, &_entry_7_0, 0, &_entry_9_0, 0, 0, 
        0, &_entry_13_0, &_entry_14_0, 0
    };


    PortableServer::ServantBase::_YV_DispatcherPtr dispatcher =
        YV_Cxx_StaticDispatchHashTable::lookup(
            operation,
            _raw_table,
            16
        );
    return dispatcher;
}

void
POA_Bank::Account::deposit_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::BasicStreamable<CORBA::Long>* _yvs__yvl_result = YV_Cxx::BasicStreamable<CORBA::Long>::_downcast(_yvl_any->yv_get_streamable());

            CORBA::Long& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::StringStreamable* _yvs__yvt_memo = 
                YV_Cxx::StringStreamable::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_memo == 0)
            {
                throw CORBA::MARSHAL();
            }

            char*& _yvt_memo = _yvs__yvt_memo->extract();


            YV_Cxx::BasicStreamable<CORBA::Long>* _yvs__yvt_count = 
                YV_Cxx::BasicStreamable<CORBA::Long>::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_count == 0)
            {
                throw CORBA::MARSHAL();
            }

            CORBA::Long& _yvt_count = _yvs__yvt_count->extract();


            YV_Cxx::VarStreamable<Bank::Money>* _yvs__yvt_fee = 
                YV_Cxx::VarStreamable<Bank::Money>::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_fee == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Money& _yvt_fee = *_yvs__yvt_fee->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->deposit(_yvt_memo, _yvt_count, _yvt_fee);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            char* memo;
            YV_Cxx::StringStreamable _yvvar_memo(&memo, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_memo(&_yvvar_memo, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_memo(_yvany_memo, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_memo;

            CORBA::Long count;
            YV_Cxx::BasicStreamable<CORBA::Long> _yvvar_count(&count, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_count(&_yvvar_count, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_count(_yvany_count, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_count;

            Bank::Money fee;
            YV_Cxx::VarStreamable<Bank::Money> _yvvar_fee(&fee, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_fee(&_yvvar_fee, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_fee(_yvany_fee, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_fee;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            CORBA::Long _yvl_result;
            YV_Cxx::BasicStreamable<CORBA::Long> _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->deposit(memo, count, fee);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (Bank::Refused&)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::swap_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::VarStreamable<Bank::Owner>* _yvs__yvl_result = YV_Cxx::VarStreamable<Bank::Owner>::_downcast(_yvl_any->yv_get_streamable());

            Bank::Owner*& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::VarStreamable<Bank::Owner>* _yvs__yvt_o = 
                YV_Cxx::VarStreamable<Bank::Owner>::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_o == 0)
            {
                throw CORBA::MARSHAL();
            }

            const Bank::Owner& _yvt_o = *_yvs__yvt_o->extract();


            YV_Cxx::VarStreamable<Bank::Owner>* _yvs__yvt_io = 
                YV_Cxx::VarStreamable<Bank::Owner>::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_io == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Owner& _yvt_io = *_yvs__yvt_io->extract();


            YV_Cxx::VarStreamable<Bank::Owner>* _yvs__yvt_oo = 
                YV_Cxx::VarStreamable<Bank::Owner>::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_oo == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Owner*& _yvt_oo = _yvs__yvt_oo->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->swap(_yvt_o, _yvt_io, _yvt_oo);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            Bank::Owner o;
            YV_Cxx::VarStreamable<Bank::Owner> _yvvar_o(&o, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_o(&_yvvar_o, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_o(_yvany_o, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_o;

            Bank::Owner io;
            YV_Cxx::VarStreamable<Bank::Owner> _yvvar_io(&io, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_io(&_yvvar_io, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_io(_yvany_io, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_io;

            Bank::Owner* oo;
            YV_Cxx::VarStreamable<Bank::Owner> _yvvar_oo(&oo, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_oo(&_yvvar_oo, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_oo(_yvany_oo, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_oo;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            Bank::Owner* _yvl_result;
            YV_Cxx::VarStreamable<Bank::Owner> _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->swap(o, io, oo);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::rename_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::StringStreamable* _yvs__yvl_result = YV_Cxx::StringStreamable::_downcast(_yvl_any->yv_get_streamable());

            char*& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::StringStreamable* _yvs__yvt_a = 
                YV_Cxx::StringStreamable::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_a == 0)
            {
                throw CORBA::MARSHAL();
            }

            char*& _yvt_a = _yvs__yvt_a->extract();


            YV_Cxx::StringStreamable* _yvs__yvt_b = 
                YV_Cxx::StringStreamable::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_b == 0)
            {
                throw CORBA::MARSHAL();
            }

            char*& _yvt_b = _yvs__yvt_b->extract();


            YV_Cxx::StringStreamable* _yvs__yvt_c = 
                YV_Cxx::StringStreamable::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_c == 0)
            {
                throw CORBA::MARSHAL();
            }

            char*& _yvt_c = _yvs__yvt_c->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->rename(_yvt_a, _yvt_b, _yvt_c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            char* a;
            YV_Cxx::StringStreamable _yvvar_a(&a, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_a(&_yvvar_a, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_a(_yvany_a, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_a;

            char* b;
            YV_Cxx::StringStreamable _yvvar_b(&b, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_b(&_yvvar_b, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_b(_yvany_b, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_b;

            char* c;
            YV_Cxx::StringStreamable _yvvar_c(&c, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_c(&_yvvar_c, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_c(_yvany_c, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_c;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            char* _yvl_result;
            YV_Cxx::StringStreamable _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->rename(a, b, c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::echo_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::AnyStreamable* _yvs__yvl_result = YV_Cxx::AnyStreamable::_downcast(_yvl_any->yv_get_streamable());

            CORBA::Any*& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::AnyStreamable* _yvs__yvt_a = 
                YV_Cxx::AnyStreamable::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_a == 0)
            {
                throw CORBA::MARSHAL();
            }

            const CORBA::Any& _yvt_a = *(_yvs__yvt_a->extract());


            YV_Cxx::AnyStreamable* _yvs__yvt_b = 
                YV_Cxx::AnyStreamable::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_b == 0)
            {
                throw CORBA::MARSHAL();
            }

            CORBA::Any& _yvt_b = *_yvs__yvt_b->extract();


            YV_Cxx::AnyStreamable* _yvs__yvt_c = 
                YV_Cxx::AnyStreamable::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_c == 0)
            {
                throw CORBA::MARSHAL();
            }

            CORBA::Any*& _yvt_c = _yvs__yvt_c->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->echo(_yvt_a, _yvt_b, _yvt_c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            CORBA::Any a;
            YV_Cxx::AnyStreamable _yvvar_a(&a, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_a(&_yvvar_a, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_a(_yvany_a, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_a;

            CORBA::Any b;
            YV_Cxx::AnyStreamable _yvvar_b(&b, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_b(&_yvvar_b, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_b(_yvany_b, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_b;

            CORBA::Any* c;
            YV_Cxx::AnyStreamable _yvvar_c(&c, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_c(&_yvvar_c, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_c(_yvany_c, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_c;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            CORBA::Any* _yvl_result;
            YV_Cxx::AnyStreamable _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->echo(a, b, c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::grid_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::ArrayStreamable<Bank::Grid>* _yvs__yvl_result = YV_Cxx::ArrayStreamable<Bank::Grid>::_downcast(_yvl_any->yv_get_streamable());

            Bank::Grid_slice*& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::ArrayStreamable<Bank::Grid>* _yvs__yvt_a = 
                YV_Cxx::ArrayStreamable<Bank::Grid>::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_a == 0)
            {
                throw CORBA::MARSHAL();
            }

            YV_ARRAY_IN_ARG_CONST Bank::Grid_slice*& _yvt_a = YV_ARRAY_CONST_CAST(YV_ARRAY_IN_ARG_CONST Bank::Grid_slice*&, _yvs__yvt_a->extract());


            YV_Cxx::ArrayStreamable<Bank::Grid>* _yvs__yvt_b = 
                YV_Cxx::ArrayStreamable<Bank::Grid>::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_b == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Grid_slice*& _yvt_b = _yvs__yvt_b->extract();


            YV_Cxx::ArrayStreamable<Bank::Grid>* _yvs__yvt_c = 
                YV_Cxx::ArrayStreamable<Bank::Grid>::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_c == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Grid_slice*& _yvt_c = _yvs__yvt_c->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->grid(_yvt_a, _yvt_b, _yvt_c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            Bank::Grid a;
            YV_Cxx::ArrayStreamable<Bank::Grid> _yvvar_a(&a, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_a(&_yvvar_a, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_a(_yvany_a, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_a;

            Bank::Grid b;
            YV_Cxx::ArrayStreamable<Bank::Grid> _yvvar_b(&b, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_b(&_yvvar_b, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_b(_yvany_b, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_b;

            Bank::Grid c;
            YV_Cxx::ArrayStreamable<Bank::Grid> _yvvar_c(&c, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_c(&_yvvar_c, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_c(_yvany_c, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_c;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            Bank::Grid_slice* _yvl_result;
            YV_Cxx::ArrayStreamable<Bank::Grid> _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->grid(a, b, c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::peer_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::ObjRefStreamable<Bank::Base>* _yvs__yvl_result = YV_Cxx::ObjRefStreamable<Bank::Base>::_downcast(_yvl_any->yv_get_streamable());

            Bank::Base_ptr& _yvl_result = _yvs__yvl_result->extract();


            YV_Cxx::ObjRefStreamable<Bank::Base>* _yvs__yvt_a = 
                YV_Cxx::ObjRefStreamable<Bank::Base>::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_a == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Base_ptr& _yvt_a = _yvs__yvt_a->extract();


            YV_Cxx::ObjRefStreamable<Bank::Base>* _yvs__yvt_b = 
                YV_Cxx::ObjRefStreamable<Bank::Base>::_downcast(
                    _yvl_nvlist->item(1)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_b == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Base_ptr& _yvt_b = _yvs__yvt_b->extract();


            YV_Cxx::ObjRefStreamable<Bank::Base>* _yvs__yvt_c = 
                YV_Cxx::ObjRefStreamable<Bank::Base>::_downcast(
                    _yvl_nvlist->item(2)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_c == 0)
            {
                throw CORBA::MARSHAL();
            }

            Bank::Base_ptr& _yvt_c = _yvs__yvt_c->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->peer(_yvt_a, _yvt_b, _yvt_c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[3];
            Bank::Base_ptr a;
            YV_Cxx::ObjRefStreamable<Bank::Base> _yvvar_a(&a, _yvl_target_orb, 0x21);
            CORBA::Any _yvany_a(&_yvvar_a, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_a(_yvany_a, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv_a;

            Bank::Base_ptr b;
            YV_Cxx::ObjRefStreamable<Bank::Base> _yvvar_b(&b, _yvl_target_orb, 0x22);
            CORBA::Any _yvany_b(&_yvvar_b, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_b(_yvany_b, CORBA::ARG_INOUT);
            _yvl_named_values[1] = &_yvnv_b;

            Bank::Base_ptr c;
            YV_Cxx::ObjRefStreamable<Bank::Base> _yvvar_c(&c, _yvl_target_orb, 0x24);
            CORBA::Any _yvany_c(&_yvvar_c, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv_c(_yvany_c, CORBA::ARG_OUT);
            _yvl_named_values[2] = &_yvnv_c;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(3, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            Bank::Base_ptr _yvl_result;
            YV_Cxx::ObjRefStreamable<Bank::Base> _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->peer(a, b, c);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::_get_balance_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::BasicStreamable<CORBA::Long>* _yvs__yvl_result = YV_Cxx::BasicStreamable<CORBA::Long>::_downcast(_yvl_any->yv_get_streamable());

            CORBA::Long& _yvl_result = _yvs__yvl_result->extract();


            _yvl_result = _yvl_intf->balance();
            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(0, 0);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            CORBA::Long _yvl_result;
            YV_Cxx::BasicStreamable<CORBA::Long> _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->balance();
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::_get_label_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::StringStreamable* _yvs__yvl_result = YV_Cxx::StringStreamable::_downcast(_yvl_any->yv_get_streamable());

            char*& _yvl_result = _yvs__yvl_result->extract();


            _yvl_result = _yvl_intf->label();
            _yvp_request->set_result(*_yvl_any);
            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(0, 0);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            char* _yvl_result;
            YV_Cxx::StringStreamable _yvl_retn(&_yvl_result, _yvl_target_orb, 0x28);
            CORBA::Any _yvl_retn_any(&_yvl_retn, YV_SHALLOW_COPY);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_result = _yvl_intf->label();
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

void
POA_Bank::Account::_set_label_yvgen_dispatch(
    PortableServer::ServantBase* _yvp_servant,
    CORBA::YV_ServerRequest_ptr _yvp_request,
    CORBA::CompletionStatus& _yvp_status
)
{
    try
    {
        Account* _yvl_intf = Account::_narrow(_yvp_servant);

        CORBA::NVList_ptr _yvl_nvlist;
        CORBA::Any *_yvl_any;

        if (_yvp_request->yv_setup(_yvl_nvlist, _yvl_any))
        {
            YV_Cxx::StringStreamable* _yvs__yvt_label = 
                YV_Cxx::StringStreamable::_downcast(
                    _yvl_nvlist->item(0)->value()->yv_get_streamable()
                );

            if (_yvs__yvt_label == 0)
            {
                throw CORBA::MARSHAL();
            }

            char*& _yvt_label = _yvs__yvt_label->extract();


            _yvp_status = CORBA::COMPLETED_MAYBE;

            _yvl_intf->label(_yvt_label);

            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->yv_respond();
        }
        else
        {
            CORBA::YV_ORB_ptr _yvl_target_orb = _yvp_request->yv_get_orb();

            CORBA::NamedValue* _yvl_named_values[1];
            char* _yvt_label;
            YV_Cxx::StringStreamable _yvvar__yvt_label(&_yvt_label, _yvl_target_orb, 0x21);
            CORBA::Any _yvany__yvt_label(&_yvvar__yvt_label, YV_SHALLOW_COPY);
            YV_Cxx_NV::StackBasedNamedValue _yvnv__yvt_label(_yvany__yvt_label, CORBA::ARG_IN);
            _yvl_named_values[0] = &_yvnv__yvt_label;

            YV_Cxx_NV::StackBasedNVList _yvl_stack_nvlist(1, _yvl_named_values);
            _yvl_nvlist = &_yvl_stack_nvlist;

            _yvp_request->arguments(_yvl_nvlist);

            CORBA::Any _yvl_retn_any(CORBA::_tc_void, 0);

            _yvp_status = CORBA::COMPLETED_MAYBE;
            _yvl_intf->label(_yvt_label);
            _yvp_status = CORBA::COMPLETED_YES;

            _yvp_request->set_result(_yvl_retn_any);
            _yvp_request->yv_respond();
        }
    }
    catch (CORBA::SystemException &)
    {
        throw;
    }
    catch (...)
    {
        throw CORBA::UNKNOWN(0, CORBA::COMPLETED_MAYBE);
    }
}

