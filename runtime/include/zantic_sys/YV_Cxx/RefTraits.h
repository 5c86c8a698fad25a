// How references of the two reference-counted families are duplicated,
// released and copied by value: object references (duplicated on copy) and
// value types (deep-copied on copy where the value can copy itself).
#ifndef YV_RT_YV_CXX_REFTRAITS_H
#define YV_RT_YV_CXX_REFTRAITS_H

#include "../CORBA/ValueBase.h"

namespace YV_Cxx {

// How a reference of interface T is duplicated and released. The call is
// unqualified: generated code declares, beside each interface's _ptr type,
// overloads of yv_ref_duplicate and yv_ref_release for it that its client
// source defines, and argument-dependent lookup prefers them to these
// templates. So _var types, sequences and streamables of an interface that
// a file only declares forward compile against the incomplete type. The
// runtime's own reference classes (CORBA::Object, TypeCode, ...) take the
// templates, which need the complete type.
template <class T>
T* yv_ref_duplicate(T* p)
{
    return T::_duplicate(p);
}

template <class T>
void yv_ref_release(T* p)
{
    if (p != nullptr)
        p->_yv_release();
}

template <class T>
struct ObjRefTraits {
    static T* duplicate(T* p) { return yv_ref_duplicate(p); }
    static void release(T* p) { yv_ref_release(p); }
    static T* copy(T* p) { return duplicate(p); }
};

// T derives from CORBA::ValueBase.
template <class T>
struct ValueTraits {
    static T* duplicate(T* p)
    {
        CORBA::add_ref(p);
        return p;
    }
    static void release(T* p) { CORBA::remove_ref(p); }
    static T* copy(T* p)
    {
        if (p == nullptr)
            return nullptr;
        if (CORBA::ValueBase* c = p->_copy_value()) {
            if (T* typed = dynamic_cast<T*>(c))
                return typed;
            c->_remove_ref();
        }
        return duplicate(p);
    }
};

} // namespace YV_Cxx

#endif
