// How references of the two reference-counted families are duplicated,
// released and copied by value: object references (duplicated on copy) and
// value types (deep-copied on copy where the value can copy itself).
#ifndef YV_RT_YV_CXX_REFTRAITS_H
#define YV_RT_YV_CXX_REFTRAITS_H

#include "../CORBA/ValueBase.h"

namespace YV_Cxx {

// T has the static _duplicate and the member _yv_release of the runtime's
// reference classes (CORBA::Object and its derived interfaces, TypeCode).
template <class T>
struct ObjRefTraits {
    static T* duplicate(T* p) { return T::_duplicate(p); }
    static void release(T* p)
    {
        if (p != nullptr)
            p->_yv_release();
    }
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
