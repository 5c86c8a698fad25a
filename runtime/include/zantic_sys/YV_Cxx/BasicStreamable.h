// The streamable of a type copied by assignment: the basic types, enums and
// fixed-point types. extract() gives T&. It travels through Marshal<T>;
// reading overwrites the value.
#ifndef YV_RT_YV_CXX_BASICSTREAMABLE_H
#define YV_RT_YV_CXX_BASICSTREAMABLE_H

#include "Marshal.h"
#include "SlotStreamable.h"

namespace YV_Cxx {

template <class T>
class BasicStreamable : public SlotStreamable<BasicStreamable<T>, T, T> {
    typedef SlotStreamable<BasicStreamable<T>, T, T> Base;

public:
    using Base::Base;

    template <class = void>

    static T yv_empty() { return T(); }
    template <class = void>
    static void yv_assign(T& to, const T& from) { to = from; }
    template <class = void>
    static void yv_destroy(T&) {}

    // Bound to a variable of the type, which keeps its value.
    template <class B>
    static void yv_bind(B& s, T* value, long) { s.yv_bind_foreign_slot(value); }
    // Bound to an in argument, which is only read.
    template <class B>
    static void yv_bind(B& s, const T* value, long) { s.yv_bind_foreign_slot(const_cast<T*>(value)); }

    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if constexpr (HasMarshal<T>::value)
            Marshal<T>::write(out, this->extract());
        else
            YV_Streamable::yv_write(out);
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        if constexpr (HasMarshal<T>::value)
            Marshal<T>::read(in, this->extract());
        else
            YV_Streamable::yv_read(in);
    }
};

} // namespace YV_Cxx

#endif
