// The machinery that every streamable class shares: a streamable reaches its
// value through a slot. The slot is someone else's variable (a caller's
// argument, a local of a dispatch function) or the streamable's own member.
//
// Derived (the concrete class) inherits the constructors and supplies, as
// public static members:
//   Slot yv_empty()                             the value of a fresh slot
//   void yv_assign(Slot& to, const Slot& from)  deep copy of a value
//   void yv_destroy(Slot& s)                    frees what the slot holds
//   void yv_bind(Base& s, P* binding, long usage)  one overload per kind of
//       storage the class can be bound to, calling one of the bind functions
//
// Constructors: without arguments the streamable owns a value of its own;
// with the address of some storage it is bound to that storage, optionally
// followed by the ORB (unused in process) and the usage value.
//
// Generated code instantiates the streamables of its types explicitly, once
// (`template class`), which compiles every member that is not a template.
// So the small helpers that only the constructors, the virtual members and
// generated code call (extract, the bind functions, and Derived's yv_empty,
// yv_assign, yv_destroy and yv_bind) are member templates (`template <class
// = void>` where nothing else is a parameter): they are instantiated where
// used, and inlined there, instead of each becoming a function of its own.
#ifndef YV_RT_YV_CXX_SLOTSTREAMABLE_H
#define YV_RT_YV_CXX_SLOTSTREAMABLE_H

#include "../YV_Streamable.h"
#include "TypeCodeOf.h"

#include <memory>

namespace YV_Cxx {

template <class Derived, class Slot, class Value>
class SlotStreamable : public YV_Streamable {
public:
    // Owns a value of its own, empty at first.
    SlotStreamable() : m_own(Derived::yv_empty()), m_slot(&m_own), m_owns(true) {}

    template <class P>
    YV_OUT_OF_LINE explicit SlotStreamable(P* binding, CORBA::YV_ORB_ptr orb = nullptr, long usage = usage_none)
        : SlotStreamable()
    {
        static_cast<void>(orb);
        Derived::yv_bind(*this, binding, usage);
    }

    template <class P>
    YV_OUT_OF_LINE SlotStreamable(P* binding, long usage) : SlotStreamable()
    {
        Derived::yv_bind(*this, binding, usage);
    }

    // The storage of the value: the generated code binds its references to it.
    template <class = void>
    Slot& extract() { return *m_slot; }
    template <class = void>
    const Slot& extract() const { return *m_slot; }

    // This class, or 0 when `s` is null or of another class.
    YV_OUT_OF_LINE static Derived* _downcast(YV_Streamable* s) { return dynamic_cast<Derived*>(s); }

    void yv_copy_value(const YV_Streamable& from) override
    {
        const Derived* source = dynamic_cast<const Derived*>(&from);
        if (source == nullptr)
            yv_type_mismatch();
        if (source != this)
            Derived::yv_assign(*m_slot, *source->m_slot);
    }

    std::unique_ptr<YV_Streamable> yv_clone() const override
    {
        Derived* copy = new Derived(); // owned by the result
        std::unique_ptr<YV_Streamable> result(copy);
        Derived::yv_assign(copy->extract(), *m_slot);
        return result;
    }

    CORBA::TypeCode_ptr yv_type() const override { return TypeCodeOf<Value>::get(); }

    YV_OUT_OF_LINE ~SlotStreamable() override
    {
        if (m_owns)
            Derived::yv_destroy(*m_slot);
    }

    // True when this streamable frees the slot's value when it goes.
    template <class = void>
    bool yv_owns_value() const { return m_owns; }

    // Binds to another's raw slot: a fresh local, cleared here and its value
    // freed with the streamable, unless the usage says usage_borrow.
    template <class = void>
    void yv_bind_slot(Slot* slot, long usage)
    {
        yv_release_own();
        m_slot = slot;
        m_owns = owns_slot(usage);
        if (m_owns)
            *m_slot = Derived::yv_empty();
    }
    // Binds to a slot whose value someone else keeps (a variable of a basic
    // type, a _var's slot, the slot behind an out parameter, an in argument).
    template <class = void>
    void yv_bind_foreign_slot(Slot* slot)
    {
        yv_release_own();
        m_slot = slot;
        m_owns = false;
    }
    // Binds to an existing value that the slot only points at: the pointer
    // is kept in the streamable's own member and never freed.
    template <class = void>
    void yv_bind_value(Slot value)
    {
        yv_release_own();
        m_own = value;
        m_slot = &m_own;
        m_owns = false;
    }

private:
    template <class = void>
    void yv_release_own()
    {
        if (m_owns && m_slot == &m_own)
            Derived::yv_destroy(m_own);
        m_own = Derived::yv_empty();
    }

    Slot m_own;
    Slot* m_slot;
    bool m_owns;
};

} // namespace YV_Cxx

#endif
