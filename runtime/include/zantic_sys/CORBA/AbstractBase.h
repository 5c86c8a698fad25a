// The base of abstract interfaces. An instance is either an object
// reference (a proxy of the interface, which also derives from
// CORBA::Object) or a value (a value type that supports the interface,
// which also derives from CORBA::ValueBase); counting goes to whichever it
// is. On the wire a boolean tells which: true and an object reference, or
// false and a value (YV_Cxx/AbstractMarshal.h).
#ifndef YV_RT_CORBA_ABSTRACTBASE_H
#define YV_RT_CORBA_ABSTRACTBASE_H

#include "../YV_Cxx/Ref_out.h"
#include "../YV_Cxx/Ref_var.h"
#include "Types.h"

#include <type_traits>

namespace CORBA {

class ValueBase;
class AbstractBase;
typedef AbstractBase* AbstractBase_ptr;

class AbstractBase {
public:
    typedef AbstractBase_ptr _ptr_type;

    static AbstractBase_ptr _duplicate(AbstractBase_ptr p);
    static AbstractBase_ptr _narrow(AbstractBase_ptr p) { return _duplicate(p); }
    static AbstractBase_ptr _unchecked_narrow(AbstractBase_ptr p) { return _duplicate(p); }
    static AbstractBase_ptr _nil() { return nullptr; }

    // A new reference to the object this is, or nil when it is a value.
    Object_ptr _to_object();
    // A new reference to the value this is, or null when it is an object.
    ValueBase* _to_value();

    // What this is, not counted: a proxy of an abstract interface gives
    // itself as the object, a value type supporting one itself as the
    // value; the other gives null.
    virtual Object_ptr _yv_object();
    virtual ValueBase* _yv_value();
    // Drops one reference (CORBA::release).
    void _yv_release();

protected:
    AbstractBase() = default;
    AbstractBase(const AbstractBase&) = default;
    AbstractBase& operator=(const AbstractBase&) = default;
    virtual ~AbstractBase();
};

void release(AbstractBase_ptr p);
Boolean is_nil(AbstractBase_ptr p);

// A concrete interface derived from an abstract one converts to both
// Object_ptr and AbstractBase_ptr; it is released and tested as an object.
// (Object itself is left to its own overloads before anything asks it for
// its bases: it may be incomplete here.)
template <class T>
using IfObjectAndAbstract =
    std::enable_if_t<std::conjunction<std::negation<std::is_same<T, Object>>, std::is_base_of<Object, T>,
                                      std::is_base_of<AbstractBase, T>>::value>;

template <class T, class = IfObjectAndAbstract<T>>
void release(T* p)
{
    if (p != nullptr)
        p->Object::_yv_release();
}

template <class T, class = IfObjectAndAbstract<T>>
Boolean is_nil(T* p)
{
    return p == nullptr;
}

typedef YV_Cxx::ObjRef_var<AbstractBase> AbstractBase_var;
typedef YV_Cxx::ObjRef_out<AbstractBase> AbstractBase_out;

} // namespace CORBA

#endif
