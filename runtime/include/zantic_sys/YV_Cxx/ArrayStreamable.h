// The streamable of an array type A. extract() gives A_slice*&.
//
// Bound to an array (A* or a slice pointer), values are copied into that
// array; bound to a slice pointer slot (A_slice**), a copy is allocated into
// the slot when the slot is empty.
//
// It travels through Marshal<A>: reading into an empty slot allocates the
// array (array_alloc), otherwise it overwrites the array there. Writing a
// null array is BAD_PARAM.
#ifndef YV_RT_YV_CXX_ARRAYSTREAMABLE_H
#define YV_RT_YV_CXX_ARRAYSTREAMABLE_H

#include "Array_forany.h"
#include "Array_out.h"
#include "Array_var.h"
#include "../CORBA/SystemException.h"
#include "ArrayMarshal.h"
#include "SlotStreamable.h"

namespace YV_Cxx {

template <class A>
class ArrayStreamable : public SlotStreamable<ArrayStreamable<A>, ArraySlice<A>*, A> {
    typedef ArraySlice<A> Slice;
    typedef SlotStreamable<ArrayStreamable<A>, Slice*, A> Base;

public:
    using Base::Base;

    static Slice* yv_empty() { return nullptr; }
    static void yv_assign(Slice*& to, Slice* const& from)
    {
        if (from == nullptr)
            return;
        if (to != nullptr)
            array_copy<A>(to, from);
        else
            to = array_dup<A>(from);
    }
    static void yv_destroy(Slice*& s)
    {
        array_free<A>(s);
        s = nullptr;
    }

    // Bound to a slice pointer variable (an out value or a result).
    static void yv_bind(Base& s, Slice** slot, long usage) { s.yv_bind_slot(slot, usage); }
    // Bound to an array through its first slice.
    static void yv_bind(Base& s, Slice* value, long) { s.yv_bind_value(value); }
    static void yv_bind(Base& s, const Slice* value, long) { s.yv_bind_value(const_cast<Slice*>(value)); }
    // Bound to an array variable.
    static void yv_bind(Base& s, A* value, long) { s.yv_bind_value(*value); }
    static void yv_bind(Base& s, const A* value, long) { s.yv_bind_value(const_cast<Slice*>(*value)); }
    // Bound to the array that an A_var owns, or to the caller's slot behind
    // an out parameter.
    static void yv_bind(Base& s, Array_var<A>* var, long) { s.yv_bind_foreign_slot(&var->yv_slot()); }
    static void yv_bind(Base& s, Array_out<A>* out, long) { s.yv_bind_foreign_slot(&out->ptr()); }
    static void yv_bind(Base& s, Array_forany<A>* any, long) { s.yv_bind_foreign_slot(&any->out()); }

    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if constexpr (HasMarshal<A>::value) {
            const Slice* v = this->extract();
            if (v == nullptr)
                throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
            Marshal<A>::write(out, *reinterpret_cast<const A*>(v));
        } else {
            YV_Streamable::yv_write(out);
        }
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        if constexpr (HasMarshal<A>::value) {
            Slice*& slot = this->extract();
            if (slot != nullptr) {
                Marshal<A>::read(in, *reinterpret_cast<A*>(slot));
                return;
            }
            // The slot's owner (this streamable or a _var) takes the array.
            Slice* fresh = array_alloc<A>();
            try {
                Marshal<A>::read(in, *reinterpret_cast<A*>(fresh));
            } catch (...) {
                array_free<A>(fresh);
                throw;
            }
            slot = fresh;
        } else {
            YV_Streamable::yv_read(in);
        }
    }
};

} // namespace YV_Cxx

#endif
