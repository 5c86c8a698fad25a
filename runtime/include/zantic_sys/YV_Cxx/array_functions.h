// Allocation and copying of IDL arrays through their slices. An array type A
// (say CORBA::Long[2][3]) is handled through pointers to its slice (the
// array without its first dimension, CORBA::Long[3]). A client header's
// A_alloc, A_dup, A_copy and A_free can forward to these functions, so that
// arrays that the runtime allocates and those of generated code match.
#ifndef YV_RT_YV_CXX_ARRAY_FUNCTIONS_H
#define YV_RT_YV_CXX_ARRAY_FUNCTIONS_H

#include <cstddef>
#include <type_traits>

namespace YV_Cxx {

template <class A>
using ArraySlice = std::remove_extent_t<A>;

// Element-wise assignment, through every dimension.
template <class E>
void array_assign(E& to, const E& from)
{
    to = from;
}
template <class E, std::size_t N>
void array_assign(E (&to)[N], const E (&from)[N])
{
    for (std::size_t i = 0; i < N; ++i)
        array_assign(to[i], from[i]);
}

template <class A>
ArraySlice<A>* array_alloc()
{
    return new ArraySlice<A>[std::extent<A>::value];
}

template <class A>
void array_free(ArraySlice<A>* a)
{
    delete[] a;
}

template <class A>
void array_copy(ArraySlice<A>* to, const ArraySlice<A>* from)
{
    for (std::size_t i = 0; i < std::extent<A>::value; ++i)
        array_assign(to[i], from[i]);
}

template <class A>
ArraySlice<A>* array_dup(const ArraySlice<A>* from)
{
    if (from == nullptr)
        return nullptr;
    ArraySlice<A>* copy = array_alloc<A>();
    array_copy<A>(copy, from);
    return copy;
}

} // namespace YV_Cxx

#endif
