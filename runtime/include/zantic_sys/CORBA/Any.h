// A value of any IDL type: a type code and a streamable that carries the
// value. An any made with YV_SHALLOW_COPY only refers to a streamable that
// someone else owns (the dispatch functions wrap their locals so); every
// other any owns a streamable of its own, and copying an any copies the
// value.
#ifndef YV_RT_CORBA_ANY_H
#define YV_RT_CORBA_ANY_H

#include "../YV_Cxx/Var_out.h"
#include "../YV_Cxx/Var_var.h"
#include "../YV_Streamable.h"
#include "Types.h"

#include <memory>

// How an any takes a streamable it is given.
enum YV_CopyMode { YV_CopyDeep, YV_CopyShallow };
#define YV_SHALLOW_COPY YV_CopyShallow

namespace CORBA {

class Any {
public:
    Any();
    Any(const Any& other);
    // Carries the streamable's value: with YV_CopyShallow the any refers to
    // `s` (which must outlive it), with YV_CopyDeep it owns a copy.
    Any(YV_Streamable* s, YV_CopyMode mode);
    // An any of type `tc`. `value`, when not null, points at a value of a
    // basic type, string or wide string of that type code (other kinds:
    // BAD_PARAM); with `release` the any frees it after taking a copy.
    Any(TypeCode_ptr tc, void* value, Boolean release = false);
    ~Any();

    Any& operator=(const Any& other);

    // The type code (a new reference).
    TypeCode_ptr type() const;
    void type(TypeCode_ptr tc);

    // The streamable that carries the value, or 0 for an empty any.
    YV_Streamable* yv_get_streamable() { return m_streamable; }
    const YV_Streamable* yv_get_streamable() const { return m_streamable; }
    // Makes the any own `s`, which carries a value of type `tc`.
    void yv_adopt(std::unique_ptr<YV_Streamable> s, TypeCode_ptr tc);

    // Wrappers that tell the insertion and extraction operators apart for
    // types that share a C++ type.
    struct from_boolean { explicit from_boolean(Boolean v) : val(v) {} Boolean val; };
    struct from_char { explicit from_char(Char v) : val(v) {} Char val; };
    struct from_wchar { explicit from_wchar(WChar v) : val(v) {} WChar val; };
    struct from_octet { explicit from_octet(Octet v) : val(v) {} Octet val; };
    struct from_string { from_string(const char* s, ULong b = 0) : val(s), bound(b) {} const char* val; ULong bound; };
    struct to_boolean { explicit to_boolean(Boolean& v) : ref(v) {} Boolean& ref; };
    struct to_char { explicit to_char(Char& v) : ref(v) {} Char& ref; };
    struct to_wchar { explicit to_wchar(WChar& v) : ref(v) {} WChar& ref; };
    struct to_octet { explicit to_octet(Octet& v) : ref(v) {} Octet& ref; };

    void operator<<=(from_boolean v);
    void operator<<=(from_char v);
    void operator<<=(from_wchar v);
    void operator<<=(from_octet v);
    void operator<<=(from_string v);
    Boolean operator>>=(to_boolean v) const;
    Boolean operator>>=(to_char v) const;
    Boolean operator>>=(to_wchar v) const;
    Boolean operator>>=(to_octet v) const;

private:
    void yv_clear();

    TypeCode_ptr m_type;
    YV_Streamable* m_streamable;
    std::unique_ptr<YV_Streamable> m_owned;
};

// Insertion copies the value; extraction answers whether the any holds a
// value of that type. An extracted string stays owned by the any.
void operator<<=(Any& a, Short v);
void operator<<=(Any& a, UShort v);
void operator<<=(Any& a, Long v);
void operator<<=(Any& a, ULong v);
void operator<<=(Any& a, LongLong v);
void operator<<=(Any& a, ULongLong v);
void operator<<=(Any& a, Float v);
void operator<<=(Any& a, Double v);
void operator<<=(Any& a, LongDouble v);
void operator<<=(Any& a, const char* v);
void operator<<=(Any& a, const WChar* v);
void operator<<=(Any& a, const Any& v);
Boolean operator>>=(const Any& a, Short& v);
Boolean operator>>=(const Any& a, UShort& v);
Boolean operator>>=(const Any& a, Long& v);
Boolean operator>>=(const Any& a, ULong& v);
Boolean operator>>=(const Any& a, LongLong& v);
Boolean operator>>=(const Any& a, ULongLong& v);
Boolean operator>>=(const Any& a, Float& v);
Boolean operator>>=(const Any& a, Double& v);
Boolean operator>>=(const Any& a, LongDouble& v);
Boolean operator>>=(const Any& a, const char*& v);
Boolean operator>>=(const Any& a, const WChar*& v);
Boolean operator>>=(const Any& a, const Any*& v);

typedef YV_Cxx::Var_var<Any> Any_var;
typedef YV_Cxx::Var_out<Any> Any_out;

} // namespace CORBA

#endif
