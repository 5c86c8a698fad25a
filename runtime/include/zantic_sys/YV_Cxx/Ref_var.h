// The owning variable of a reference (object reference: ObjRef_var; value
// type: Value_var). Traits say how a reference is duplicated and released.
#ifndef YV_RT_YV_CXX_REF_VAR_H
#define YV_RT_YV_CXX_REF_VAR_H

#include "RefTraits.h"

namespace YV_Cxx {

template <class T, class Traits>
class Ref_var {
public:
    Ref_var() : m_ptr(nullptr) {}
    // Adopts the reference.
    Ref_var(T* p) : m_ptr(p) {}
    Ref_var(const Ref_var& other) : m_ptr(Traits::duplicate(other.m_ptr)) {}
    ~Ref_var() { Traits::release(m_ptr); }

    Ref_var& operator=(T* p)
    {
        if (p != m_ptr) {
            Traits::release(m_ptr);
            m_ptr = p;
        }
        return *this;
    }
    Ref_var& operator=(const Ref_var& other)
    {
        if (this != &other)
            *this = Traits::duplicate(other.m_ptr);
        return *this;
    }

    operator T*() const { return m_ptr; }
    operator T*&() { return m_ptr; }
    T* operator->() const { return m_ptr; }

    T* in() const { return m_ptr; }
    T*& inout() { return m_ptr; }
    // Releases the reference held and hands out the slot for a new one.
    T*& out()
    {
        Traits::release(m_ptr);
        m_ptr = nullptr;
        return m_ptr;
    }
    // The slot itself, for a streamable bound to the variable.
    T*& yv_slot() { return m_ptr; }
    // Gives up ownership.
    T* _retn()
    {
        T* p = m_ptr;
        m_ptr = nullptr;
        return p;
    }
    T* ptr() const { return m_ptr; }

private:
    T* m_ptr;
};

template <class T>
using ObjRef_var = Ref_var<T, ObjRefTraits<T>>;
template <class T>
using Value_var = Ref_var<T, ValueTraits<T>>;

} // namespace YV_Cxx

#endif
