// The streamable of a string (StringStreamable) or wide string
// (WStringStreamable), bounded or not. extract() gives char*& (WChar*&).
#ifndef YV_RT_YV_CXX_BASICSTRINGSTREAMABLE_H
#define YV_RT_YV_CXX_BASICSTRINGSTREAMABLE_H

#include "SlotStreamable.h"
#include "StringOut.h"
#include "StringVar.h"

namespace YV_Cxx {

template <class CharT>
class BasicStringStreamable : public SlotStreamable<BasicStringStreamable<CharT>, CharT*, CharT*> {
    typedef SlotStreamable<BasicStringStreamable<CharT>, CharT*, CharT*> Base;

public:
    using Base::Base;

    static CharT* yv_empty() { return nullptr; }
    static void yv_assign(CharT*& to, CharT* const& from)
    {
        CharT* copy = YV_Cxx::string_dup(from);
        YV_Cxx::string_free(to);
        to = copy;
    }
    static void yv_destroy(CharT*& s)
    {
        YV_Cxx::string_free(s);
        s = nullptr;
    }

    // Bound to a string pointer variable.
    static void yv_bind(Base& s, CharT** slot, long usage) { s.yv_bind_slot(slot, usage); }
    // Bound to an in argument (const CharT*), which is only read.
    static void yv_bind(Base& s, const CharT** slot, long) { s.yv_bind_foreign_slot(const_cast<CharT**>(slot)); }
    // Bound to the string that a String_var owns.
    static void yv_bind(Base& s, StringVar<CharT>* var, long) { s.yv_bind_foreign_slot(&var->yv_slot()); }
    // Bound to the caller's slot behind an out parameter.
    static void yv_bind(Base& s, StringOut<CharT>* out, long) { s.yv_bind_foreign_slot(&out->ptr()); }
};

typedef BasicStringStreamable<char> StringStreamable;
typedef BasicStringStreamable<CORBA::WChar> WStringStreamable;

} // namespace YV_Cxx

#endif
