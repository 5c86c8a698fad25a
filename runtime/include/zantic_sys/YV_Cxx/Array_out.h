// The out parameter of a variable-length array (A_out).
#ifndef YV_RT_YV_CXX_ARRAY_OUT_H
#define YV_RT_YV_CXX_ARRAY_OUT_H

#include "Array_var.h"

namespace YV_Cxx {

template <class A>
class Array_out {
public:
    typedef ArraySlice<A> Slice;

    Array_out(Slice*& p) : m_ptr(p) { m_ptr = nullptr; }
    Array_out(Array_var<A>& v) : m_ptr(v.out()) {}
    Array_out(const Array_out& other) : m_ptr(other.m_ptr) {}

    Array_out& operator=(const Array_out& other)
    {
        m_ptr = other.m_ptr;
        return *this;
    }
    // Adopts the array.
    Array_out& operator=(Slice* p)
    {
        m_ptr = p;
        return *this;
    }

    Slice& operator[](CORBA::ULong i) { return m_ptr[i]; }
    operator Slice*&() { return m_ptr; }
    Slice*& ptr() { return m_ptr; }

private:
    Slice*& m_ptr;
};

} // namespace YV_Cxx

#endif
