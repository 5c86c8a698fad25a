#include "zantic_sys/CORBA/AbstractBase.h"

#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/CORBA/ValueBase.h"

namespace CORBA {

AbstractBase::~AbstractBase() = default;

AbstractBase_ptr AbstractBase::_duplicate(AbstractBase_ptr p)
{
    if (p != nullptr) {
        if (Object_ptr o = p->_yv_object())
            Object::_duplicate(o);
        else
            add_ref(p->_yv_value());
    }
    return p;
}

Object_ptr AbstractBase::_to_object() { return Object::_duplicate(_yv_object()); }

ValueBase* AbstractBase::_to_value()
{
    ValueBase* v = _yv_value();
    add_ref(v);
    return v;
}

Object_ptr AbstractBase::_yv_object() { return nullptr; }

ValueBase* AbstractBase::_yv_value() { return nullptr; }

void AbstractBase::_yv_release()
{
    // The last reference may delete this: nothing is touched after.
    if (Object_ptr o = _yv_object())
        release(o);
    else
        remove_ref(_yv_value());
}

void release(AbstractBase_ptr p)
{
    if (p != nullptr)
        p->_yv_release();
}

Boolean is_nil(AbstractBase_ptr p) { return p == nullptr; }

} // namespace CORBA
