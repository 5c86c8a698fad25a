// References in CDR.
//
// Object references (every interface T, CORBA::Object) travel as IORs
// through CORBA::Object::_yv_write and _yv_read; a reference read becomes a
// T through T::_unchecked_narrow. Type codes travel in their own form
// (TypeCodeMarshal.h); a principal is an octet sequence, which this runtime
// neither sends (it writes an empty one) nor keeps. Values travel through
// write_value and read_value (ValueMarshal.h).
#ifndef YV_RT_YV_CXX_REFMARSHAL_H
#define YV_RT_YV_CXX_REFMARSHAL_H

#include "../CORBA/Object.h"
#include "../CORBA/Principal.h"
#include "../CORBA/SystemException.h"
#include "../CORBA/TypeCode.h"
#include "Marshal.h"
#include "Ref_var.h"
#include "TypeCodeMarshal.h"
#include "ValueMarshal.h"

#include <type_traits>

namespace YV_Cxx {

// An interface reference seen as a CORBA::Object, and an object read made
// a reference of T. Generated code overloads both for its interfaces, as it
// does yv_ref_duplicate (RefTraits.h), so that a reference travels without
// the complete type; the tag argument only selects the overload.
template <class T>
CORBA::Object_ptr yv_ref_object(T* p)
{
    return p;
}

template <class T>
T* yv_ref_narrow(CORBA::Object_ptr obj, T*)
{
    // Interfaces of code generated before they had their own
    // _unchecked_narrow (it would answer a plain Object) narrow by _narrow.
    if constexpr (std::is_same<decltype(T::_unchecked_narrow(obj)), T*>::value)
        return T::_unchecked_narrow(obj);
    else
        return T::_narrow(obj);
}

// Every reference of the object-reference family; TypeCode and Principal
// have their own forms (below and TypeCodeMarshal.h).
template <class T>
struct Marshal<Ref_var<T, ObjRefTraits<T>>> {
    // The repository id's length and NUL, and the profile count.
    static constexpr std::size_t min_size = 9;

    static void write(YV_CDR::OutputStream& out, T* v) { CORBA::Object::_yv_write(out, yv_ref_object(v)); }
    static T* read_reference(YV_CDR::InputStream& in)
    {
        CORBA::Object_var obj = CORBA::Object::_yv_read(in);
        if (CORBA::is_nil(obj))
            return nullptr;
        return yv_ref_narrow(obj.in(), static_cast<T*>(nullptr));
    }
    static void read(YV_CDR::InputStream& in, Ref_var<T, ObjRefTraits<T>>& v) { v = read_reference(in); }
};

template <>
struct Marshal<Ref_var<CORBA::Principal, ObjRefTraits<CORBA::Principal>>> {
    static constexpr std::size_t min_size = 4;

    static void write(YV_CDR::OutputStream& out, CORBA::Principal_ptr) { out.write_ulong(0); }
    static CORBA::Principal_ptr read_reference(YV_CDR::InputStream& in)
    {
        in.skip(in.read_count(1));
        return nullptr;
    }
    static void read(YV_CDR::InputStream& in, Ref_var<CORBA::Principal, ObjRefTraits<CORBA::Principal>>& v)
    {
        v = read_reference(in);
    }
};

template <class T>
struct Marshal<Ref_var<T, ValueTraits<T>>> {
    // The null value tag.
    static constexpr std::size_t min_size = 4;

    static void write(YV_CDR::OutputStream& out, T* v) { write_value(out, v); }
    // A value of another type than T is MARSHAL.
    static T* read_reference(YV_CDR::InputStream& in)
    {
        CORBA::ValueBase* v = read_value_of<T>(in);
        if (v == nullptr)
            return nullptr;
        if (T* typed = dynamic_cast<T*>(v))
            return typed;
        v->_remove_ref();
        throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
    }
    static void read(YV_CDR::InputStream& in, Ref_var<T, ValueTraits<T>>& v) { v = read_reference(in); }
};

} // namespace YV_Cxx

#endif
