// The streamable of an array type A. extract() gives A_slice*&.
//
// Bound to an array (A* or a slice pointer), values are copied into that
// array; bound to a slice pointer slot (A_slice**), a copy is allocated into
// the slot when the slot is empty.
#ifndef YV_RT_YV_CXX_ARRAYSTREAMABLE_H
#define YV_RT_YV_CXX_ARRAYSTREAMABLE_H

#include "Array_forany.h"
#include "Array_out.h"
#include "Array_var.h"
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
};

} // namespace YV_Cxx

#endif
