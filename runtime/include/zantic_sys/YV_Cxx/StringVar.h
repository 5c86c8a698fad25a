// The owning string variable of the C++ mapping (CORBA::String_var and
// CORBA::WString_var), for either character type.
#ifndef YV_RT_YV_CXX_STRINGVAR_H
#define YV_RT_YV_CXX_STRINGVAR_H

#include "../CORBA/string_functions.h"

namespace YV_Cxx {

template <class CharT>
class StringVar {
public:
    StringVar() : m_ptr(nullptr) {}
    // Adopts the string.
    StringVar(CharT* p) : m_ptr(p) {}
    // Copies the string.
    StringVar(const CharT* p) : m_ptr(YV_Cxx::string_dup(p)) {}
    StringVar(const StringVar& other) : m_ptr(YV_Cxx::string_dup(other.m_ptr)) {}
    StringVar(StringVar&& other) noexcept : m_ptr(other.m_ptr) { other.m_ptr = nullptr; }
    ~StringVar() { YV_Cxx::string_free(m_ptr); }

    StringVar& operator=(CharT* p)
    {
        if (p != m_ptr) {
            YV_Cxx::string_free(m_ptr);
            m_ptr = p;
        }
        return *this;
    }
    StringVar& operator=(const CharT* p)
    {
        if (p != m_ptr) {
            CharT* copy = YV_Cxx::string_dup(p);
            YV_Cxx::string_free(m_ptr);
            m_ptr = copy;
        }
        return *this;
    }
    StringVar& operator=(const StringVar& other)
    {
        return *this = static_cast<const CharT*>(other.m_ptr);
    }
    StringVar& operator=(StringVar&& other) noexcept
    {
        if (this != &other) {
            YV_Cxx::string_free(m_ptr);
            m_ptr = other.m_ptr;
            other.m_ptr = nullptr;
        }
        return *this;
    }

    operator CharT*&() { return m_ptr; }
    operator const CharT*() const { return m_ptr; }

    const CharT* in() const { return m_ptr; }
    CharT*& inout() { return m_ptr; }
    // Frees the string held and hands out the slot for a new one.
    CharT*& out()
    {
        YV_Cxx::string_free(m_ptr);
        m_ptr = nullptr;
        return m_ptr;
    }
    // The slot itself, for a streamable bound to the variable.
    CharT*& yv_slot() { return m_ptr; }
    // Gives up ownership.
    CharT* _retn()
    {
        CharT* p = m_ptr;
        m_ptr = nullptr;
        return p;
    }

    CharT& operator[](CORBA::ULong i) { return m_ptr[i]; }
    CharT operator[](CORBA::ULong i) const { return m_ptr[i]; }

private:
    CharT* m_ptr;
};

} // namespace YV_Cxx

#endif
