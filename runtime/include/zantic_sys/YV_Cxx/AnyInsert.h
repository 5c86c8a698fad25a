// The insertion and extraction operators of generated code: each is one
// call of a template below, given the streamable class S of the type and
// the type's type code.
//
//   struct, union, sequence, exception T (S = VarStreamable<T>):
//     void operator<<=(CORBA::Any& a, const T& v)
//         { YV_Cxx::any_insert_copy<S>(a, _tc_T, v); }
//     void operator<<=(CORBA::Any& a, T* v)
//         { YV_Cxx::any_insert_adopt<S>(a, _tc_T, v); }
//     CORBA::Boolean operator>>=(const CORBA::Any& a, const T*& v)
//         { return YV_Cxx::any_extract_ptr<S>(a, _tc_T, v); }
//     and for structs, unions and sequences also (deprecated by the
//     standard mapping, kept for old programs):
//     CORBA::Boolean operator>>=(const CORBA::Any& a, T*& v)
//         { return YV_Cxx::any_extract_ptr<S>(a, _tc_T, v); }
//   enum E (S = BasicStreamable<E>):
//     void operator<<=(CORBA::Any& a, E v)
//         { YV_Cxx::any_insert_copy<S>(a, _tc_E, v); }
//     CORBA::Boolean operator>>=(const CORBA::Any& a, E& v)
//         { return YV_Cxx::any_extract_value<S>(a, _tc_E, v); }
//   interface I (S = ObjRefStreamable<I>):
//     void operator<<=(CORBA::Any& a, I_ptr v)        (duplicates v)
//         { YV_Cxx::any_insert_copy<S>(a, _tc_I, v); }
//     void operator<<=(CORBA::Any& a, I_ptr* v)       (takes *v over, sets it nil)
//         { YV_Cxx::any_insert_adopt<S>(a, _tc_I, v); }
//     CORBA::Boolean operator>>=(const CORBA::Any& a, I_ptr& v)
//         { return YV_Cxx::any_extract_value<S>(a, _tc_I, v); }
//     (the any keeps the reference it hands out)
//   value type or value box V (S = ValueStreamable<V>):
//     void operator<<=(CORBA::Any& a, V* v)           (adds a reference)
//         { YV_Cxx::any_insert_shared<S>(a, _tc_V, v); }
//     void operator<<=(CORBA::Any& a, V** v)          (takes *v over, sets it null)
//         { YV_Cxx::any_insert_adopt<S>(a, _tc_V, v); }
//     CORBA::Boolean operator>>=(const CORBA::Any& a, V*& v)
//         { return YV_Cxx::any_extract_value<S>(a, _tc_V, v); }
//     (the any keeps the value it hands out)
//   array A (S = ArrayStreamable<A>):
//     void operator<<=(CORBA::Any& a, const A_forany& v)
//         { YV_Cxx::any_insert_array<S>(a, _tc_A, v); }
//     CORBA::Boolean operator>>=(const CORBA::Any& a, A_forany& v)
//         { return YV_Cxx::any_extract_array<S>(a, _tc_A, v); }
//     (insertion copies, or takes the array over when the forany was made
//     with nocopy; extraction leaves the array owned by the any)
//
// Extraction succeeds when the any's type is equivalent to the type code
// given (aliases looked through). An encoded value is decoded on the first
// extraction with Marshal<T> and kept in the any.
#ifndef YV_RT_YV_CXX_ANYINSERT_H
#define YV_RT_YV_CXX_ANYINSERT_H

#include "../CORBA/Any.h"
#include "../CORBA/ValueBase.h"
#include "Array_forany.h"

#include <memory>
#include <type_traits>

namespace YV_Cxx {

// The slot type of a streamable class (T& for basic types, T*& for the
// others).
template <class S>
using AnySlot = typename std::remove_reference<decltype(std::declval<S&>().extract())>::type;

// The any owns a copy of `v`: T is the value (struct, union, sequence,
// exception, enum, basic type) or the reference (I_ptr, duplicated).
template <class S, class T>
void any_insert_copy(CORBA::Any& a, CORBA::TypeCode_ptr tc, const T& v)
{
    std::unique_ptr<S> s(new S());
    if constexpr (std::is_same<AnySlot<S>, T*>::value)
        S::yv_assign(s->extract(), const_cast<T*>(&v));
    else
        S::yv_assign(s->extract(), v);
    a.yv_adopt(std::move(s), tc);
}

// The any takes `v` over: a value allocated with new (struct, union,
// sequence, exception), or the reference that *v holds (I_ptr*), which
// is left nil so that the caller cannot release it twice.
template <class S, class T>
void any_insert_adopt(CORBA::Any& a, CORBA::TypeCode_ptr tc, T* v)
{
    std::unique_ptr<S> s(new S());
    if constexpr (std::is_same<AnySlot<S>, T*>::value) {
        s->extract() = v;
    } else {
        s->extract() = *v;
        *v = nullptr;
    }
    a.yv_adopt(std::move(s), tc);
}

// The any shares the value type instance `v`: one reference more, no copy.
template <class S, class T>
void any_insert_shared(CORBA::Any& a, CORBA::TypeCode_ptr tc, T* v)
{
    CORBA::add_ref(v);
    T* shared = v;
    any_insert_adopt<S>(a, tc, &shared);
}

// A pointer to the value the any holds (the any keeps it).
template <class S, class T>
CORBA::Boolean any_extract_ptr(const CORBA::Any& a, CORBA::TypeCode_ptr tc, const T*& v)
{
    S* s = a.yv_value_as<S>(tc);
    if (s == nullptr || s->extract() == nullptr)
        return false;
    v = s->extract();
    return true;
}
template <class S, class T>
CORBA::Boolean any_extract_ptr(const CORBA::Any& a, CORBA::TypeCode_ptr tc, T*& v)
{
    const T* p = nullptr;
    if (!any_extract_ptr<S>(a, tc, p))
        return false;
    v = const_cast<T*>(p);
    return true;
}

// The value itself (enums, basic types), or the reference the any holds
// (I_ptr; the any keeps it).
template <class S, class T>
CORBA::Boolean any_extract_value(const CORBA::Any& a, CORBA::TypeCode_ptr tc, T& v)
{
    S* s = a.yv_value_as<S>(tc);
    if (s == nullptr)
        return false;
    v = s->extract();
    return true;
}

template <class S, class A>
void any_insert_array(CORBA::Any& a, CORBA::TypeCode_ptr tc, const Array_forany<A>& v)
{
    std::unique_ptr<S> s(new S());
    if (v.nocopy())
        s->extract() = v.ptr();
    else
        S::yv_assign(s->extract(), v.ptr());
    a.yv_adopt(std::move(s), tc);
}

template <class S, class A>
CORBA::Boolean any_extract_array(const CORBA::Any& a, CORBA::TypeCode_ptr tc, Array_forany<A>& v)
{
    S* s = a.yv_value_as<S>(tc);
    if (s == nullptr || s->extract() == nullptr)
        return false;
    v = Array_forany<A>(s->extract(), false);
    return true;
}

} // namespace YV_Cxx

#endif
