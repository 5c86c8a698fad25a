// The owning variable of an array (A_var): holds an allocated array through
// a pointer to its slice.
#ifndef YV_RT_YV_CXX_ARRAY_VAR_H
#define YV_RT_YV_CXX_ARRAY_VAR_H

#include "../CORBA/Types.h"
#include "array_functions.h"

namespace YV_Cxx {

template <class A>
class Array_var {
public:
    typedef ArraySlice<A> Slice;

    Array_var() : m_ptr(nullptr) {}
    // Adopts the array.
    Array_var(Slice* p) : m_ptr(p) {}
    Array_var(const Array_var& other) : m_ptr(array_dup<A>(other.m_ptr)) {}
    ~Array_var() { array_free<A>(m_ptr); }

    Array_var& operator=(Slice* p)
    {
        if (p != m_ptr) {
            array_free<A>(m_ptr);
            m_ptr = p;
        }
        return *this;
    }
    Array_var& operator=(const Array_var& other)
    {
        if (this != &other)
            *this = array_dup<A>(other.m_ptr);
        return *this;
    }

    Slice& operator[](CORBA::ULong i) { return m_ptr[i]; }
    const Slice& operator[](CORBA::ULong i) const { return m_ptr[i]; }
    operator Slice*&() { return m_ptr; }
    operator const Slice*() const { return m_ptr; }

    const Slice* in() const { return m_ptr; }
    Slice* inout() { return m_ptr; }
    // Frees the array held and hands out the slot for a new one.
    Slice*& out()
    {
        array_free<A>(m_ptr);
        m_ptr = nullptr;
        return m_ptr;
    }
    // The slot itself, for a streamable bound to the variable.
    Slice*& yv_slot() { return m_ptr; }
    Slice* _retn()
    {
        Slice* p = m_ptr;
        m_ptr = nullptr;
        return p;
    }
    Slice* ptr() const { return m_ptr; }

private:
    Slice* m_ptr;
};

} // namespace YV_Cxx

#endif
