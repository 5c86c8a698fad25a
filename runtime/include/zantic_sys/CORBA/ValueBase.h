// The base of value types: reference counted, copied through _copy_value.
#ifndef YV_RT_CORBA_VALUEBASE_H
#define YV_RT_CORBA_VALUEBASE_H

#include "Types.h"

#include <atomic>

namespace CORBA {

class ValueBase {
public:
    virtual void _add_ref();
    virtual void _remove_ref();
    virtual ULong _refcount_value() const;
    // A deep copy with one reference, or 0 when the class cannot copy
    // itself (the runtime then shares the value instead).
    virtual ValueBase* _copy_value();

    static ValueBase* _downcast(ValueBase* v) { return v; }

protected:
    ValueBase() = default;
    ValueBase(const ValueBase&) : m_refs(1) {}
    ValueBase& operator=(const ValueBase&) { return *this; }
    virtual ~ValueBase();

private:
    std::atomic<ULong> m_refs{1};
};

inline void add_ref(ValueBase* v)
{
    if (v != nullptr)
        v->_add_ref();
}
inline void remove_ref(ValueBase* v)
{
    if (v != nullptr)
        v->_remove_ref();
}

// The reference counting that value types of the generated code inherit.
typedef ValueBase DefaultValueRefCountBase;

} // namespace CORBA

#endif
