// The streamable of a reference: object references (ObjRefStreamable, also
// for CORBA::Object and CORBA::TypeCode) and value types (ValueStreamable,
// also for CORBA::ValueBase). extract() gives T*&. A copy of an object
// reference is a duplicate; a copy of a value is the value's _copy_value.
//
// It travels through Marshal<Ref_var<T, Traits>> (RefMarshal.h): reading
// puts a new reference into the slot and releases the one it held.
#ifndef YV_RT_YV_CXX_REFSTREAMABLE_H
#define YV_RT_YV_CXX_REFSTREAMABLE_H

#include "RefMarshal.h"
#include "Ref_out.h"
#include "Ref_var.h"
#include "SlotStreamable.h"

namespace YV_Cxx {

template <class T, class Traits>
class RefStreamable : public SlotStreamable<RefStreamable<T, Traits>, T*, T> {
    typedef SlotStreamable<RefStreamable<T, Traits>, T*, T> Base;

public:
    using Base::Base;

    template <class = void>

    static T* yv_empty() { return nullptr; }
    template <class = void>
    static void yv_assign(T*& to, T* const& from)
    {
        T* old = to;
        to = Traits::copy(from);
        Traits::release(old);
    }
    template <class = void>
    static void yv_destroy(T*& s)
    {
        Traits::release(s);
        s = nullptr;
    }

    // Bound to a reference variable (T_ptr or T*).
    template <class B>
    static void yv_bind(B& s, T** slot, long usage) { s.yv_bind_slot(slot, usage); }
    // Bound to an in argument, which is only read.
    template <class B>
    static void yv_bind(B& s, T* const* slot, long) { s.yv_bind_foreign_slot(const_cast<T**>(slot)); }
    // Bound to the reference that a _var owns.
    template <class B>
    static void yv_bind(B& s, Ref_var<T, Traits>* var, long) { s.yv_bind_foreign_slot(&var->yv_slot()); }
    // Bound to the caller's slot behind an out parameter.
    template <class B>
    static void yv_bind(B& s, Ref_out<T, Traits>* out, long) { s.yv_bind_foreign_slot(&out->ptr()); }

    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if constexpr (HasMarshal<Ref_var<T, Traits>>::value) {
            const Ref_var<T, Traits> var(Traits::duplicate(this->extract()));
            Marshal<Ref_var<T, Traits>>::write(out, var);
        } else {
            YV_Streamable::yv_write(out);
        }
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        if constexpr (HasMarshal<Ref_var<T, Traits>>::value) {
            Ref_var<T, Traits> fresh;
            Marshal<Ref_var<T, Traits>>::read(in, fresh);
            T*& slot = this->extract();
            T* old = slot;
            slot = fresh._retn();
            Traits::release(old);
        } else {
            YV_Streamable::yv_read(in);
        }
    }
};

template <class T>
using ObjRefStreamable = RefStreamable<T, ObjRefTraits<T>>;
template <class T>
using ValueStreamable = RefStreamable<T, ValueTraits<T>>;

} // namespace YV_Cxx

#endif
