// The narrowing of an object reference to an interface I, as a client
// class's _narrow does it: a reference that already is an I is duplicated;
// another whose target answers _is_a for I's repository id is wrapped in a
// new Proxy (a class derived from I, constructible from the reference);
// any other gives nil. The unchecked narrowing, the standard
// _unchecked_narrow, asks the target nothing: a reference that is not an I
// is wrapped in a new Proxy all the same (so that a reference read from a
// message becomes a typed proxy without a call).
#ifndef YV_RT_YV_CXX_NARROW_REFERENCE_H
#define YV_RT_YV_CXX_NARROW_REFERENCE_H

#include "../CORBA/Object.h"

namespace YV_Cxx {

template <class I, class Proxy>
I* narrow_reference(CORBA::Object_ptr obj)
{
    if (obj == nullptr)
        return nullptr;
    if (I* typed = dynamic_cast<I*>(obj))
        return I::_duplicate(typed);
    if (obj->_is_a(I::_yv_fw_type_id.c_str()))
        return new Proxy(obj);
    return nullptr;
}

template <class I, class Proxy>
I* unchecked_narrow_reference(CORBA::Object_ptr obj)
{
    if (obj == nullptr)
        return nullptr;
    if (I* typed = dynamic_cast<I*>(obj))
        return I::_duplicate(typed);
    return new Proxy(obj);
}

} // namespace YV_Cxx

#endif
