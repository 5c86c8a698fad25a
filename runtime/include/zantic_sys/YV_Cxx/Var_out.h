// The out parameter of a variable-length structure or union, a sequence
// (Seq_out) or an any (CORBA::Any_out): refers to the caller's slot, which it
// clears on construction.
#ifndef YV_RT_YV_CXX_VAR_OUT_H
#define YV_RT_YV_CXX_VAR_OUT_H

#include "Var_var.h"

#include <utility>

namespace YV_Cxx {

template <class T>
class Var_out {
public:
    Var_out(T*& p) : m_ptr(p) { m_ptr = nullptr; }
    Var_out(Var_var<T>& v) : m_ptr(v.out()) {}
    Var_out(const Var_out& other) : m_ptr(other.m_ptr) {}

    Var_out& operator=(const Var_out& other)
    {
        m_ptr = other.m_ptr;
        return *this;
    }
    // Adopts the value.
    Var_out& operator=(T* p)
    {
        m_ptr = p;
        return *this;
    }

    operator T*&() { return m_ptr; }
    T*& ptr() { return m_ptr; }
    T* operator->() { return m_ptr; }

    template <class I>
    auto operator[](I i) -> decltype(std::declval<T&>()[i]) { return (*m_ptr)[i]; }

private:
    T*& m_ptr;
};

template <class T>
using Seq_out = Var_out<T>;

} // namespace YV_Cxx

#endif
