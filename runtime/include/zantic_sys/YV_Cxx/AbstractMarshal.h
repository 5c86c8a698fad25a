// Abstract interfaces in CDR: a boolean, true for an object reference (its
// IOR follows), false for a value (the value's encoding follows). A nil
// abstract interface is false and a null value, as omniORB writes it.
#ifndef YV_RT_YV_CXX_ABSTRACTMARSHAL_H
#define YV_RT_YV_CXX_ABSTRACTMARSHAL_H

#include "../CORBA/AbstractBase.h"
#include "../CORBA/Object.h"
#include "../CORBA/SystemException.h"
#include "../CORBA/ValueBase.h"

namespace YV_CDR {
class InputStream;
class OutputStream;
}

namespace YV_Cxx {

void write_abstract(YV_CDR::OutputStream& out, CORBA::AbstractBase_ptr a);

// Reads one: `object` gets a new reference (the value null), or `value` a
// new value or null (the object nil).
void read_abstract(YV_CDR::InputStream& in, CORBA::Object_ptr& object, CORBA::ValueBase*& value);

// Reads one as an instance of abstract interface A: an object reference
// becomes A's proxy through A::_yv_from_object(CORBA::Object_ptr) (generated
// code: a new proxy, the reference left to the caller); a value must be of
// a class that supports A (else MARSHAL).
template <class A>
A* read_abstract_as(YV_CDR::InputStream& in)
{
    CORBA::Object_ptr object = nullptr;
    CORBA::ValueBase* value = nullptr;
    read_abstract(in, object, value);
    if (object != nullptr) {
        A* a = A::_yv_from_object(object);
        CORBA::release(object);
        return a;
    }
    if (value == nullptr)
        return nullptr;
    if (A* a = dynamic_cast<A*>(value))
        return a;
    value->_remove_ref();
    throw CORBA::MARSHAL(0, CORBA::COMPLETED_NO);
}

} // namespace YV_Cxx

#endif
