// The owning variable of a servant: holds one of the servant's references
// (adopted on construction from a pointer, _add_ref on copy, _remove_ref
// when it lets go).
#ifndef YV_RT_PORTABLESERVER_SERVANT_VAR_H
#define YV_RT_PORTABLESERVER_SERVANT_VAR_H

#include "ServantBase.h"

namespace PortableServer {

template <class Servant>
class Servant_var {
public:
    Servant_var() : m_ptr(nullptr) {}
    Servant_var(Servant* p) : m_ptr(p) {}
    Servant_var(const Servant_var& other) : m_ptr(other.m_ptr)
    {
        if (m_ptr != nullptr)
            m_ptr->_add_ref();
    }
    ~Servant_var()
    {
        if (m_ptr != nullptr)
            m_ptr->_remove_ref();
    }
    Servant_var& operator=(Servant* p)
    {
        if (p != m_ptr) {
            if (m_ptr != nullptr)
                m_ptr->_remove_ref();
            m_ptr = p;
        }
        return *this;
    }
    Servant_var& operator=(const Servant_var& other)
    {
        if (this != &other) {
            if (other.m_ptr != nullptr)
                other.m_ptr->_add_ref();
            *this = other.m_ptr;
        }
        return *this;
    }

    Servant* operator->() const { return m_ptr; }
    Servant& operator*() const { return *m_ptr; }
    operator Servant*() const { return m_ptr; }
    Servant* in() const { return m_ptr; }
    Servant*& inout() { return m_ptr; }
    Servant*& out()
    {
        *this = nullptr;
        return m_ptr;
    }
    Servant* _retn()
    {
        Servant* p = m_ptr;
        m_ptr = nullptr;
        return p;
    }

private:
    Servant* m_ptr;
};

typedef Servant_var<ServantBase> ServantBase_var;

// Servants count references in ServantBase already; programs written for
// the older mapping still derive from this.
class RefCountServantBase : public virtual ServantBase {
protected:
    RefCountServantBase() = default;
    RefCountServantBase(const RefCountServantBase&) : ServantBase() {}
    RefCountServantBase& operator=(const RefCountServantBase&) { return *this; }
    ~RefCountServantBase() override = default;
};

} // namespace PortableServer

#endif
