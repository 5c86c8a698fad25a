// The array wrapper that anys take arrays through (A_forany): refers to an
// array without owning it; `nocopy` records that an any may take the array
// over instead of copying it.
#ifndef YV_RT_YV_CXX_ARRAY_FORANY_H
#define YV_RT_YV_CXX_ARRAY_FORANY_H

#include "../CORBA/Types.h"
#include "array_functions.h"

namespace YV_Cxx {

template <class A>
class Array_forany {
public:
    typedef A array_type;
    typedef ArraySlice<A> Slice;

    Array_forany(Slice* p = nullptr, CORBA::Boolean nocopy = false) : m_ptr(p), m_nocopy(nocopy) {}

    Array_forany& operator=(Slice* p)
    {
        m_ptr = p;
        return *this;
    }

    Slice& operator[](CORBA::ULong i) { return m_ptr[i]; }
    const Slice& operator[](CORBA::ULong i) const { return m_ptr[i]; }
    operator Slice*() const { return m_ptr; }

    const Slice* in() const { return m_ptr; }
    Slice* inout() { return m_ptr; }
    Slice*& out() { return m_ptr; }
    Slice* _retn() { return m_ptr; }
    Slice* ptr() const { return m_ptr; }
    CORBA::Boolean nocopy() const { return m_nocopy; }

private:
    Slice* m_ptr;
    CORBA::Boolean m_nocopy;
};

} // namespace YV_Cxx

#endif
