// The skeleton header of Bank.hh, written by hand in exactly the shape the
// skeleton generator writes (with -xTIE), so that the runtime is compiled
// and run against that shape.
#ifndef _YV_GUARD_BankS_HH_
#define _YV_GUARD_BankS_HH_

#include <zantic_sys/poa_tie_base.h>
#include <zantic_sys/yvcxx.h>
#include <zantic_sys/yvstatichash.h>
#include "Bank.hh"


namespace POA_Bank
{
    class Base :
        virtual public PortableServer::ServantBase

    {
      public:
        virtual ~Base();

        PortableServer::ServantBase::_YV_DispatcherPtr
        _lookup_dispatcher(
            const char* operation
        );

        Bank::Base_ptr
        _this();

        virtual CORBA::Boolean
        _yv_is_a(
            const YV_FWString& _id
        );

        virtual CORBA::RepositoryId
        _primary_interface(
            const PortableServer::ObjectId& oid,
            PortableServer::POA_ptr poa
        );

        virtual void*
        _local_narrow(
            const char* tag
        );

        static char _narrow_tag;

        static Base*
        _narrow(
            PortableServer::ServantBase* _servant
        );

        virtual void
        ping() = 0;

        static void
        ping_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

    };

    class Account :
        virtual public Base
    {
      public:
        virtual ~Account();

        PortableServer::ServantBase::_YV_DispatcherPtr
        _lookup_dispatcher(
            const char* operation
        );

        Bank::Account_ptr
        _this();

        virtual CORBA::Boolean
        _yv_is_a(
            const YV_FWString& _id
        );

        virtual CORBA::RepositoryId
        _primary_interface(
            const PortableServer::ObjectId& oid,
            PortableServer::POA_ptr poa
        );

        virtual void*
        _local_narrow(
            const char* tag
        );

        static char _narrow_tag;

        static Account*
        _narrow(
            PortableServer::ServantBase* _servant
        );

        virtual CORBA::Long
        deposit(
            const char* memo,
            CORBA::Long& count,
            Bank::Money_out fee
        ) = 0;

        static void
        deposit_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual Bank::Owner*
        swap(
            const Bank::Owner& o,
            Bank::Owner& io,
            Bank::Owner_out oo
        ) = 0;

        static void
        swap_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual char*
        rename(
            const char* a,
            char*& b,
            CORBA::String_out c
        ) = 0;

        static void
        rename_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual CORBA::Any*
        echo(
            const CORBA::Any& a,
            CORBA::Any& b,
            CORBA::Any_out c
        ) = 0;

        static void
        echo_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual Bank::Grid_slice*
        grid(
            const Bank::Grid a,
            Bank::Grid b,
            Bank::Grid c
        ) = 0;

        static void
        grid_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual Bank::Base_ptr
        peer(
            Bank::Base_ptr a,
            Bank::Base_ptr& b,
            Bank::Base_out c
        ) = 0;

        static void
        peer_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual CORBA::Long
        balance() = 0;
        static void
        _get_balance_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual char*
        label() = 0;
        static void
        _get_label_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

        virtual void
        label(
            const char* _yvvar_label
        ) = 0;
        static void
        _set_label_yvgen_dispatch(
            PortableServer::ServantBase* _servant,
            CORBA::YV_ServerRequest_ptr _request,
            CORBA::CompletionStatus &_status
        );

    };

}

template<class _YV_Cxx_T_>
class POA_Bank_Base_tie :
    public virtual POA_Bank::Base,
    public virtual YV_POA_TieBase<_YV_Cxx_T_>
{
  public:
    POA_Bank_Base_tie(
        _YV_Cxx_T_& t
    ) : YV_POA_TieBase<_YV_Cxx_T_>(t) {}

    POA_Bank_Base_tie(
        _YV_Cxx_T_& t,
        PortableServer::POA_ptr poa
    ) : YV_POA_TieBase<_YV_Cxx_T_>(t, poa) {}

    POA_Bank_Base_tie(
        _YV_Cxx_T_* tp,
        CORBA::Boolean release = 1
    ) : YV_POA_TieBase<_YV_Cxx_T_>(tp, release) {}

    POA_Bank_Base_tie(
        _YV_Cxx_T_* tp,
        PortableServer::POA_ptr poa,
        CORBA::Boolean release = 1
    ) : YV_POA_TieBase<_YV_Cxx_T_>(tp, poa, release) {}

    ~POA_Bank_Base_tie()
    {
    }

  protected:
    POA_Bank_Base_tie() {}

  public:
    void
    ping()
    {
        YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->ping();
    }

  private:
    POA_Bank_Base_tie(const POA_Bank_Base_tie<_YV_Cxx_T_>&);
    POA_Bank_Base_tie<_YV_Cxx_T_>& operator=(const POA_Bank_Base_tie<_YV_Cxx_T_>&);
};

template<class _YV_Cxx_T_>
class POA_Bank_Account_tie :
    public virtual POA_Bank::Account,
    public virtual POA_Bank_Base_tie<_YV_Cxx_T_>,
    public virtual YV_POA_TieBase<_YV_Cxx_T_>
{
  public:
    POA_Bank_Account_tie(
        _YV_Cxx_T_& t
    ) : YV_POA_TieBase<_YV_Cxx_T_>(t) {}

    POA_Bank_Account_tie(
        _YV_Cxx_T_& t,
        PortableServer::POA_ptr poa
    ) : YV_POA_TieBase<_YV_Cxx_T_>(t, poa) {}

    POA_Bank_Account_tie(
        _YV_Cxx_T_* tp,
        CORBA::Boolean release = 1
    ) : YV_POA_TieBase<_YV_Cxx_T_>(tp, release) {}

    POA_Bank_Account_tie(
        _YV_Cxx_T_* tp,
        PortableServer::POA_ptr poa,
        CORBA::Boolean release = 1
    ) : YV_POA_TieBase<_YV_Cxx_T_>(tp, poa, release) {}

    ~POA_Bank_Account_tie()
    {
    }

  protected:
    POA_Bank_Account_tie() {}

  public:
    CORBA::Long
    deposit(
        const char* memo,
        CORBA::Long& count,
        Bank::Money_out fee
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->deposit(memo, count, fee);
    }
    Bank::Owner*
    swap(
        const Bank::Owner& o,
        Bank::Owner& io,
        Bank::Owner_out oo
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->swap(o, io, oo);
    }
    char*
    rename(
        const char* a,
        char*& b,
        CORBA::String_out c
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->rename(a, b, c);
    }
    CORBA::Any*
    echo(
        const CORBA::Any& a,
        CORBA::Any& b,
        CORBA::Any_out c
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->echo(a, b, c);
    }
    Bank::Grid_slice*
    grid(
        const Bank::Grid a,
        Bank::Grid b,
        Bank::Grid c
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->grid(a, b, c);
    }
    Bank::Base_ptr
    peer(
        Bank::Base_ptr a,
        Bank::Base_ptr& b,
        Bank::Base_out c
    )
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->peer(a, b, c);
    }
    CORBA::Long
    balance()
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->balance();
    }

    char*
    label()
    {
        return YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->label();
    }

    void
    label(
        const char* _yvvar_label
    )
    {
        YV_POA_TieBase<_YV_Cxx_T_>::_yv_m_ptr->label(_yvvar_label);
    }


  private:
    POA_Bank_Account_tie(const POA_Bank_Account_tie<_YV_Cxx_T_>&);
    POA_Bank_Account_tie<_YV_Cxx_T_>& operator=(const POA_Bank_Account_tie<_YV_Cxx_T_>&);
};

#endif
