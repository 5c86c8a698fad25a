#include "zantic_sys/CORBA/string_functions.h"

#include <cstring>
#include <cwchar>

namespace CORBA {

char* string_alloc(ULong len)
{
    char* s = new char[len + 1];
    s[0] = '\0';
    return s;
}

char* string_dup(const char* s)
{
    if (s == nullptr)
        return nullptr;
    const std::size_t len = std::strlen(s);
    char* copy = string_alloc(static_cast<ULong>(len));
    std::memcpy(copy, s, len + 1);
    return copy;
}

void string_free(char* s)
{
    delete[] s;
}

WChar* wstring_alloc(ULong len)
{
    WChar* s = new WChar[len + 1];
    s[0] = L'\0';
    return s;
}

WChar* wstring_dup(const WChar* s)
{
    if (s == nullptr)
        return nullptr;
    const std::size_t len = std::wcslen(s);
    WChar* copy = wstring_alloc(static_cast<ULong>(len));
    std::wmemcpy(copy, s, len + 1);
    return copy;
}

void wstring_free(WChar* s)
{
    delete[] s;
}

} // namespace CORBA
