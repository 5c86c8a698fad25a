// A value of any IDL type: a type code and the value, held in one of two
// forms:
//
// - typed: a streamable carrying a value of a C++ type of this process. An
//   any made with YV_SHALLOW_COPY only refers to a streamable that someone
//   else owns (the dispatch functions wrap their locals so); every other any
//   owns its streamable.
// - encoded: the value's CDR octets with their byte order, alignment phase
//   and GIOP minor version, as they arrived in a message. The any may be of
//   a type this process does not know; it is passed on unchanged. The first
//   extraction of a typed value decodes it (through the type's Marshal) and
//   the any keeps the typed value from then on.
//
// Copying an any copies the value (an encoded value is shared: it is never
// changed). A const any changes its form when a value is first extracted
// from it, so one any must not be read by two threads at once.
//
// Generated insertion and extraction operators call the templates of
// YV_Cxx/AnyInsert.h.
#ifndef YV_RT_CORBA_ANY_H
#define YV_RT_CORBA_ANY_H

#include "../YV_Cxx/Marshal.h"
#include "../YV_Cxx/Var_out.h"
#include "../YV_Cxx/Var_var.h"
#include "../YV_Streamable.h"
#include "Types.h"

#include <memory>

// How an any takes a streamable it is given.
enum YV_CopyMode { YV_CopyDeep, YV_CopyShallow };
#define YV_SHALLOW_COPY YV_CopyShallow

namespace YV_TC {
struct EncodedValue;
} // namespace YV_TC

namespace CORBA {

class Fixed;

class Any {
public:
    Any();
    Any(const Any& other);
    Any(Any&& other) noexcept;
    // Carries the streamable's value: with YV_CopyShallow the any refers to
    // `s` (which must outlive it), with YV_CopyDeep it owns a copy.
    Any(YV_Streamable* s, YV_CopyMode mode);
    // An any of type `tc`. `value`, when not null, points at a value of a
    // basic type, string or wide string of that type code (other kinds:
    // BAD_PARAM); with `release` the any frees it after taking a copy.
    Any(TypeCode_ptr tc, void* value, Boolean release = false);
    ~Any();

    Any& operator=(const Any& other);
    Any& operator=(Any&& other) noexcept;

    // The type code (a new reference).
    TypeCode_ptr type() const;
    // Replaces the type code by an equivalent one (BAD_TYPECODE when it is
    // not). An any without a value takes any type code.
    void type(TypeCode_ptr tc);

    // ---- wrappers of the standard mapping for types that share a C++ type

    struct from_boolean { explicit from_boolean(Boolean v) : val(v) {} Boolean val; };
    struct from_char { explicit from_char(Char v) : val(v) {} Char val; };
    struct from_wchar { explicit from_wchar(WChar v) : val(v) {} WChar val; };
    struct from_octet { explicit from_octet(Octet v) : val(v) {} Octet val; };
    // A string with its bound (0: unbounded); with nocopy the any takes the
    // string over (it must come from string_alloc).
    struct from_string {
        from_string(const char* s, ULong b, Boolean nc = false) : val(const_cast<char*>(s)), bound(b), nocopy(nc) {}
        from_string(char* s, ULong b, Boolean nc = false) : val(s), bound(b), nocopy(nc) {}
        char* val;
        ULong bound;
        Boolean nocopy;
    };
    struct from_wstring {
        from_wstring(const WChar* s, ULong b, Boolean nc = false) : val(const_cast<WChar*>(s)), bound(b), nocopy(nc) {}
        from_wstring(WChar* s, ULong b, Boolean nc = false) : val(s), bound(b), nocopy(nc) {}
        WChar* val;
        ULong bound;
        Boolean nocopy;
    };
    struct from_fixed {
        from_fixed(const Fixed& f, UShort d, UShort s) : val(f), digits(d), scale(s) {}
        const Fixed& val;
        UShort digits;
        UShort scale;
    };

    struct to_boolean { explicit to_boolean(Boolean& v) : ref(v) {} Boolean& ref; };
    struct to_char { explicit to_char(Char& v) : ref(v) {} Char& ref; };
    struct to_wchar { explicit to_wchar(WChar& v) : ref(v) {} WChar& ref; };
    struct to_octet { explicit to_octet(Octet& v) : ref(v) {} Octet& ref; };
    // The any keeps the string.
    struct to_string { to_string(const char*& s, ULong b) : val(s), bound(b) {} const char*& val; ULong bound; };
    struct to_wstring { to_wstring(const WChar*& s, ULong b) : val(s), bound(b) {} const WChar*& val; ULong bound; };
    struct to_fixed {
        to_fixed(Fixed& f, UShort d, UShort s) : val(f), digits(d), scale(s) {}
        Fixed& val;
        UShort digits;
        UShort scale;
    };
    // Any object reference, whatever its interface; the caller owns the
    // reference it gets.
    struct to_object { explicit to_object(Object_ptr& o) : ref(o) {} Object_ptr& ref; };

    void operator<<=(from_boolean v);
    void operator<<=(from_char v);
    void operator<<=(from_wchar v);
    void operator<<=(from_octet v);
    void operator<<=(from_string v);
    void operator<<=(from_wstring v);
    void operator<<=(from_fixed v);
    Boolean operator>>=(to_boolean v) const;
    Boolean operator>>=(to_char v) const;
    Boolean operator>>=(to_wchar v) const;
    Boolean operator>>=(to_octet v) const;
    Boolean operator>>=(to_string v) const;
    Boolean operator>>=(to_wstring v) const;
    Boolean operator>>=(to_fixed v) const;
    Boolean operator>>=(to_object v) const;

    // ---- the runtime's own access

    // The streamable that carries a typed value, or 0 (no value, or an
    // encoded one).
    YV_Streamable* yv_get_streamable() { return m_streamable; }
    const YV_Streamable* yv_get_streamable() const { return m_streamable; }
    // Makes the any own `s`, which carries a value of type `tc`.
    void yv_adopt(std::unique_ptr<YV_Streamable> s, TypeCode_ptr tc);
    // Makes the any hold the encoded value `v` of type `tc`.
    void yv_set_encoded(TypeCode_ptr tc, std::shared_ptr<const YV_TC::EncodedValue> v);
    const std::shared_ptr<const YV_TC::EncodedValue>& yv_encoded() const { return m_encoded; }
    // True when the any holds a value (typed or encoded).
    bool yv_has_value() const { return m_streamable != nullptr || m_encoded != nullptr; }
    // The any's type code, still owned by the any.
    TypeCode_ptr yv_type() const { return m_type; }
    // True when the any's type is `tc` or equivalent to it.
    bool yv_type_is(TypeCode_ptr tc) const;

    // The value as a streamable of class S when the any's type is
    // equivalent to `tc`, else 0. A value of another form (encoded, or a
    // streamable of another class) is converted once through CDR and kept
    // in its new form. The any owns the streamable.
    template <class S>
    S* yv_value_as(TypeCode_ptr tc) const
    {
        if (!yv_type_is(tc) || !yv_has_value())
            return nullptr;
        if (S* s = S::_downcast(m_streamable))
            return s;
        std::unique_ptr<S> fresh(new S());
        yv_convert_into(*fresh);
        S* p = fresh.get();
        const_cast<Any*>(this)->yv_keep(std::move(fresh));
        return p;
    }

    // Writes the value alone (no type code) in CDR; an encoded value is
    // copied as it is where byte order, alignment and GIOP version allow,
    // else transcoded. MARSHAL when the any holds no value.
    void yv_write_value(YV_CDR::OutputStream& out) const;
    // True when both anys hold equal values of equivalent types, whatever
    // form each holds its value in.
    bool yv_equal(const Any& other) const;

private:
    void yv_clear();
    void yv_convert_into(YV_Streamable& s) const;
    // A stream over the value: the encoded octets, or `scratch` after the
    // typed value was written into it.
    YV_CDR::InputStream yv_value_stream(YV_CDR::OutputStream& scratch) const;
    void yv_keep(std::unique_ptr<YV_Streamable> s);

    TypeCode_ptr m_type;
    YV_Streamable* m_streamable;
    std::unique_ptr<YV_Streamable> m_owned;
    std::shared_ptr<const YV_TC::EncodedValue> m_encoded;
};

// Insertion copies the value (the pointer forms take the value over);
// extraction answers whether the any holds a value of that type. Extracted
// pointers and references stay owned by the any.
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
void operator<<=(Any& a, Any* v);
void operator<<=(Any& a, TypeCode_ptr v);
void operator<<=(Any& a, TypeCode_ptr* v);
void operator<<=(Any& a, Object_ptr v);
void operator<<=(Any& a, Object_ptr* v);
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
Boolean operator>>=(const Any& a, TypeCode_ptr& v);
Boolean operator>>=(const Any& a, Object_ptr& v);

typedef YV_Cxx::Var_var<Any> Any_var;
typedef YV_Cxx::Var_out<Any> Any_out;

} // namespace CORBA

namespace YV_Cxx {

// An any in CDR: its type code, then its value.
template <>
struct Marshal<CORBA::Any> {
    static constexpr std::size_t min_size = 4;
    static void write(YV_CDR::OutputStream& out, const CORBA::Any& v);
    static void read(YV_CDR::InputStream& in, CORBA::Any& v);
};

} // namespace YV_Cxx

#endif
