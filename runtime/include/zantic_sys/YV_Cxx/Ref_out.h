// The out parameter of a reference (ObjRef_out, Value_out): refers to the
// caller's slot, which it clears on construction.
#ifndef YV_RT_YV_CXX_REF_OUT_H
#define YV_RT_YV_CXX_REF_OUT_H

#include "Ref_var.h"

namespace YV_Cxx {

template <class T, class Traits>
class Ref_out {
public:
    Ref_out(T*& p) : m_ptr(p) { m_ptr = nullptr; }
    Ref_out(Ref_var<T, Traits>& v) : m_ptr(v.out()) {}
    Ref_out(const Ref_out& other) : m_ptr(other.m_ptr) {}

    Ref_out& operator=(const Ref_out& other)
    {
        m_ptr = other.m_ptr;
        return *this;
    }
    // Adopts the reference.
    Ref_out& operator=(T* p)
    {
        m_ptr = p;
        return *this;
    }
    // Duplicates the reference.
    Ref_out& operator=(const Ref_var<T, Traits>& v)
    {
        m_ptr = Traits::duplicate(v.ptr());
        return *this;
    }

    operator T*&() { return m_ptr; }
    T*& ptr() { return m_ptr; }
    T* operator->() { return m_ptr; }

private:
    T*& m_ptr;
};

template <class T>
using ObjRef_out = Ref_out<T, ObjRefTraits<T>>;
template <class T>
using Value_out = Ref_out<T, ValueTraits<T>>;

} // namespace YV_Cxx

#endif
