// The streamable of a type handed around by pointer: structures, unions,
// sequences and anys (AnyStreamable). extract() gives T*&.
//
// Bound to a value (T*), the slot points at that value and a copy goes into
// it; bound to a pointer slot (T**), a copy is allocated into the slot when
// the slot is empty. A null source value leaves the target as it is.
//
// It travels through Marshal<T>: reading into an empty pointer slot
// allocates the value (new T), otherwise it overwrites the value there.
// Writing a null value is BAD_PARAM.
#ifndef YV_RT_YV_CXX_VARSTREAMABLE_H
#define YV_RT_YV_CXX_VARSTREAMABLE_H

#include "Fix_var.h"
#include "../CORBA/SystemException.h"
#include "Marshal.h"
#include "SlotStreamable.h"

#include <memory>

namespace YV_Cxx {

template <class T>
class VarStreamable : public SlotStreamable<VarStreamable<T>, T*, T> {
    typedef SlotStreamable<VarStreamable<T>, T*, T> Base;

public:
    using Base::Base;

    template <class = void>

    static T* yv_empty() { return nullptr; }
    template <class = void>
    static void yv_assign(T*& to, T* const& from)
    {
        if (from == nullptr)
            return;
        if (to != nullptr)
            *to = *from;
        else
            to = new T(*from);
    }
    template <class = void>
    static void yv_destroy(T*& s)
    {
        delete s;
        s = nullptr;
    }

    // Bound to a pointer variable (an out value or a result).
    template <class B>
    static void yv_bind(B& s, T** slot, long usage) { s.yv_bind_slot(slot, usage); }
    // Bound to a value.
    template <class B>
    static void yv_bind(B& s, T* value, long) { s.yv_bind_value(value); }
    // Bound to an in argument, which is only read.
    template <class B>
    static void yv_bind(B& s, const T* value, long) { s.yv_bind_value(const_cast<T*>(value)); }
    // Bound to the value that a fixed-length _var owns.
    template <class B>
    static void yv_bind(B& s, Fix_var<T>* var, long) { s.yv_bind_value(var->ptr()); }
    // Bound to the value that a variable-length _var owns (its slot T*&),
    // or to the caller's slot behind an out parameter.
    template <class V>
    static auto yv_bind(Base& s, V* var, long) -> decltype(static_cast<T*&>(var->yv_slot()), void())
    {
        s.yv_bind_foreign_slot(&var->yv_slot());
    }
    template <class V>
    static auto yv_bind(Base& s, V* out, long) -> decltype(static_cast<T*&>(out->ptr()), void())
    {
        s.yv_bind_foreign_slot(&out->ptr());
    }

    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if constexpr (HasMarshal<T>::value) {
            const T* v = this->extract();
            if (v == nullptr)
                throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
            Marshal<T>::write(out, *v);
        } else {
            YV_Streamable::yv_write(out);
        }
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        if constexpr (HasMarshal<T>::value) {
            T*& slot = this->extract();
            if (slot != nullptr) {
                Marshal<T>::read(in, *slot);
                return;
            }
            // The slot's owner (this streamable or a _var) takes the value.
            std::unique_ptr<T> fresh(new T());
            Marshal<T>::read(in, *fresh);
            slot = fresh.release();
        } else {
            YV_Streamable::yv_read(in);
        }
    }
};

} // namespace YV_Cxx

#endif
