// The out parameter of a string (CORBA::String_out, CORBA::WString_out):
// refers to the caller's slot, which it clears on construction.
#ifndef YV_RT_YV_CXX_STRINGOUT_H
#define YV_RT_YV_CXX_STRINGOUT_H

#include "StringVar.h"

namespace YV_Cxx {

template <class CharT>
class StringOut {
public:
    StringOut(CharT*& p) : m_ptr(p) { m_ptr = nullptr; }
    StringOut(StringVar<CharT>& v) : m_ptr(v.out()) {}
    StringOut(const StringOut& other) : m_ptr(other.m_ptr) {}

    StringOut& operator=(const StringOut& other)
    {
        m_ptr = other.m_ptr;
        return *this;
    }
    // Adopts the string.
    StringOut& operator=(CharT* p)
    {
        m_ptr = p;
        return *this;
    }
    // Copies the string.
    StringOut& operator=(const CharT* p)
    {
        m_ptr = YV_Cxx::string_dup(p);
        return *this;
    }

    operator CharT*&() { return m_ptr; }
    CharT*& ptr() { return m_ptr; }

private:
    CharT*& m_ptr;
};

} // namespace YV_Cxx

#endif
