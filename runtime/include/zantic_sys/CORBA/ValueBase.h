// The base of value types: reference counted, copied through _copy_value.
#ifndef YV_RT_CORBA_VALUEBASE_H
#define YV_RT_CORBA_VALUEBASE_H

#include "Types.h"

#include <atomic>

namespace YV_CDR {
class InputStream;
class OutputStream;
}

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

    // What the value encoder and decoder (YV_Cxx/ValueMarshal.h) need of a
    // concrete value class; generated value types and boxes override them.
    //
    // The repository ids the value travels with: its own first, then those
    // of the bases a receiver may truncate it to (truncatable values).
    // The array lives as long as the class; the default has none, and such a
    // value cannot be sent (MARSHAL).
    virtual const char* const* _yv_type_ids(ULong& count) const;
    // True when the value is written in chunks (truncatable values; any
    // value nested in a chunked one is chunked whatever this says).
    virtual Boolean _yv_is_chunked() const;
    // The state members in declaration order, bases first: nested values
    // through YV_Cxx::write_value / read_value on the same stream, so that
    // sharing and chunks span the whole message. The defaults raise MARSHAL.
    virtual void _yv_marshal_state(YV_CDR::OutputStream& out) const;
    virtual void _yv_unmarshal_state(YV_CDR::InputStream& in);

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
