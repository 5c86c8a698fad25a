// The owning variable of a variable-length structure or union, a sequence
// (Seq_var) or an any (CORBA::Any_var): out and result values travel as
// T*, so out() gives T*&.
#ifndef YV_RT_YV_CXX_VAR_VAR_H
#define YV_RT_YV_CXX_VAR_VAR_H

#include <utility>

namespace YV_Cxx {

template <class T>
class Var_var {
public:
    Var_var() : m_ptr(nullptr) {}
    // Adopts the value.
    Var_var(T* p) : m_ptr(p) {}
    Var_var(const Var_var& other) : m_ptr(other.m_ptr ? new T(*other.m_ptr) : nullptr) {}
    ~Var_var() { delete m_ptr; }

    Var_var& operator=(T* p)
    {
        if (p != m_ptr) {
            delete m_ptr;
            m_ptr = p;
        }
        return *this;
    }
    Var_var& operator=(const Var_var& other)
    {
        if (this != &other)
            *this = other.m_ptr ? new T(*other.m_ptr) : nullptr;
        return *this;
    }

    T* operator->() { return m_ptr; }
    const T* operator->() const { return m_ptr; }
    operator T&() { return *m_ptr; }
    operator const T&() const { return *m_ptr; }
    operator T*&() { return m_ptr; }

    // Element access for sequences.
    template <class I>
    auto operator[](I i) -> decltype(std::declval<T&>()[i]) { return (*m_ptr)[i]; }
    template <class I>
    auto operator[](I i) const -> decltype(std::declval<const T&>()[i]) { return (*m_ptr)[i]; }

    const T& in() const { return *m_ptr; }
    T& inout() { return *m_ptr; }
    // Frees the value held and hands out the slot for a new one.
    T*& out()
    {
        delete m_ptr;
        m_ptr = nullptr;
        return m_ptr;
    }
    // The slot itself, for a streamable bound to the variable.
    T*& yv_slot() { return m_ptr; }
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
using Seq_var = Var_var<T>;

} // namespace YV_Cxx

#endif
