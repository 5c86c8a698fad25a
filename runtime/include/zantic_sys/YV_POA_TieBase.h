// The base of every TIE class: holds the object that the TIE forwards to
// (`_yv_m_ptr`), whether the TIE deletes it, and the adapter to use.
#ifndef YV_RT_YV_POA_TIEBASE_H
#define YV_RT_YV_POA_TIEBASE_H

#include "PortableServer/POA.h"
#include "PortableServer/ServantBase.h"

template <class T>
class YV_POA_TieBase : public virtual PortableServer::ServantBase {
public:
    YV_POA_TieBase(T& t) : _yv_m_ptr(&t) {}
    YV_POA_TieBase(T& t, PortableServer::POA_ptr poa) : _yv_m_ptr(&t), m_poa(PortableServer::POA::_duplicate(poa)) {}
    // With `release` the TIE deletes the object when it goes or is re-tied.
    YV_POA_TieBase(T* tp, CORBA::Boolean release) : _yv_m_ptr(tp), m_release(release) {}
    YV_POA_TieBase(T* tp, PortableServer::POA_ptr poa, CORBA::Boolean release)
        : _yv_m_ptr(tp), m_poa(PortableServer::POA::_duplicate(poa)), m_release(release)
    {
    }
    ~YV_POA_TieBase() override
    {
        if (m_release)
            delete _yv_m_ptr;
    }
    YV_POA_TieBase(const YV_POA_TieBase&) = delete;
    YV_POA_TieBase& operator=(const YV_POA_TieBase&) = delete;

    T* _tied_object() { return _yv_m_ptr; }
    void _tied_object(T& t) { retie(&t, false); }
    void _tied_object(T* tp, CORBA::Boolean release = true) { retie(tp, release); }
    CORBA::Boolean _is_owner() const { return m_release; }
    void _is_owner(CORBA::Boolean b) { m_release = b; }

    PortableServer::POA_ptr _default_POA() override
    {
        if (m_poa.ptr() != nullptr)
            return PortableServer::POA::_duplicate(m_poa.ptr());
        return PortableServer::ServantBase::_default_POA();
    }

protected:
    // Used only when a derived TIE is not the most derived class: the most
    // derived class constructs this virtual base with its object.
    YV_POA_TieBase() = default;

    T* _yv_m_ptr = nullptr;

private:
    void retie(T* tp, CORBA::Boolean release)
    {
        if (m_release && tp != _yv_m_ptr)
            delete _yv_m_ptr;
        _yv_m_ptr = tp;
        m_release = release;
    }

    PortableServer::POA_var m_poa;
    CORBA::Boolean m_release = false;
};

#endif
