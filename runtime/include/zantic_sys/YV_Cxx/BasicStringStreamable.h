// The streamable of a string (StringStreamable) or wide string
// (WStringStreamable), bounded or not. extract() gives char*& (WChar*&).
// Writing a null string is BAD_PARAM; reading puts a new string into the
// slot and frees the one it held.
#ifndef YV_RT_YV_CXX_BASICSTRINGSTREAMABLE_H
#define YV_RT_YV_CXX_BASICSTRINGSTREAMABLE_H

#include "../YV_CDR/InputStream.h"
#include "../YV_CDR/OutputStream.h"
#include "SlotStreamable.h"
#include "StringOut.h"
#include "StringVar.h"

#include <type_traits>

namespace YV_Cxx {

template <class CharT>
class BasicStringStreamable : public SlotStreamable<BasicStringStreamable<CharT>, CharT*, CharT*> {
    typedef SlotStreamable<BasicStringStreamable<CharT>, CharT*, CharT*> Base;

public:
    using Base::Base;

    template <class = void>

    static CharT* yv_empty() { return nullptr; }
    template <class = void>
    static void yv_assign(CharT*& to, CharT* const& from)
    {
        CharT* copy = YV_Cxx::string_dup(from);
        YV_Cxx::string_free(to);
        to = copy;
    }
    template <class = void>
    static void yv_destroy(CharT*& s)
    {
        YV_Cxx::string_free(s);
        s = nullptr;
    }

    // Bound to a string pointer variable.
    template <class B>
    static void yv_bind(B& s, CharT** slot, long usage) { s.yv_bind_slot(slot, usage); }
    // Bound to an in argument (const CharT*), which is only read.
    template <class B>
    static void yv_bind(B& s, const CharT** slot, long) { s.yv_bind_foreign_slot(const_cast<CharT**>(slot)); }
    // Bound to the string that a String_var owns.
    template <class B>
    static void yv_bind(B& s, StringVar<CharT>* var, long) { s.yv_bind_foreign_slot(&var->yv_slot()); }
    // Bound to the caller's slot behind an out parameter.
    template <class B>
    static void yv_bind(B& s, StringOut<CharT>* out, long) { s.yv_bind_foreign_slot(&out->ptr()); }

    void yv_write(YV_CDR::OutputStream& out) const override
    {
        if constexpr (std::is_same<CharT, char>::value)
            out.write_string(this->extract());
        else
            out.write_wstring(this->extract());
    }
    void yv_read(YV_CDR::InputStream& in) override
    {
        CharT* fresh;
        if constexpr (std::is_same<CharT, char>::value)
            fresh = in.read_string();
        else
            fresh = in.read_wstring();
        CharT*& slot = this->extract();
        YV_Cxx::string_free(slot);
        slot = fresh;
    }
};

typedef BasicStringStreamable<char> StringStreamable;
typedef BasicStringStreamable<CORBA::WChar> WStringStreamable;

} // namespace YV_Cxx

#endif
