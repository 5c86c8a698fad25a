// Allocation of the strings that the C++ mapping hands from owner to owner.
// Every string that a String_var, a sequence or a streamable frees must come
// from these functions.
#ifndef YV_RT_CORBA_STRING_FUNCTIONS_H
#define YV_RT_CORBA_STRING_FUNCTIONS_H

#include "Types.h"

namespace CORBA {

// Room for `len` characters and the terminating NUL.
char* string_alloc(ULong len);
// A copy of `s`; a null `s` gives a null result.
char* string_dup(const char* s);
void string_free(char* s);

WChar* wstring_alloc(ULong len);
WChar* wstring_dup(const WChar* s);
void wstring_free(WChar* s);

} // namespace CORBA

namespace YV_Cxx {

// The same operations chosen by character type, for the templates that
// serve both string kinds.
inline char* string_dup(const char* s) { return CORBA::string_dup(s); }
inline CORBA::WChar* string_dup(const CORBA::WChar* s) { return CORBA::wstring_dup(s); }
inline void string_free(char* s) { CORBA::string_free(s); }
inline void string_free(CORBA::WChar* s) { CORBA::wstring_free(s); }

} // namespace YV_Cxx

#endif
