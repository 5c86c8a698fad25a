#include "zantic_sys/CORBA/Any.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/YV_Cxx/AnyStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"

#include <utility>

namespace CORBA {

namespace {

// Makes `a` own a streamable of class S holding `value`.
template <class S, class V>
void insert(Any& a, const V& value, TypeCode_ptr tc)
{
    std::unique_ptr<S> s(new S());
    S::yv_assign(s->extract(), value);
    a.yv_adopt(std::move(s), tc);
}

// The value held by `a` when its streamable is of class S.
template <class S>
const S* held(const Any& a)
{
    return S::_downcast(const_cast<YV_Streamable*>(a.yv_get_streamable()));
}

template <class T>
Boolean extract_basic(const Any& a, T& v)
{
    if (const YV_Cxx::BasicStreamable<T>* s = held<YV_Cxx::BasicStreamable<T>>(a)) {
        v = s->extract();
        return true;
    }
    return false;
}

// A copy of the basic value at `value`, of the kind `tc` names, as an owned
// streamable; the value is freed afterwards when `release` is set.
template <class T>
std::unique_ptr<YV_Streamable> take_basic(void* value, Boolean release)
{
    T* typed = static_cast<T*>(value);
    std::unique_ptr<YV_Cxx::BasicStreamable<T>> s(new YV_Cxx::BasicStreamable<T>());
    s->extract() = *typed;
    if (release)
        delete typed;
    return s;
}

template <class S, class CharT>
std::unique_ptr<YV_Streamable> take_string(void* value, Boolean release)
{
    CharT** slot = static_cast<CharT**>(value);
    std::unique_ptr<S> s(new S());
    S::yv_assign(s->extract(), *slot);
    if (release) {
        YV_Cxx::string_free(*slot);
        delete slot;
    }
    return s;
}

std::unique_ptr<YV_Streamable> take_value(TypeCode_ptr tc, void* value, Boolean release)
{
    switch (tc->kind()) {
    case tk_short: return take_basic<Short>(value, release);
    case tk_ushort: return take_basic<UShort>(value, release);
    case tk_long: return take_basic<Long>(value, release);
    case tk_ulong: return take_basic<ULong>(value, release);
    case tk_longlong: return take_basic<LongLong>(value, release);
    case tk_ulonglong: return take_basic<ULongLong>(value, release);
    case tk_float: return take_basic<Float>(value, release);
    case tk_double: return take_basic<Double>(value, release);
    case tk_longdouble: return take_basic<LongDouble>(value, release);
    case tk_boolean: return take_basic<Boolean>(value, release);
    case tk_char: return take_basic<Char>(value, release);
    case tk_wchar: return take_basic<WChar>(value, release);
    case tk_octet: return take_basic<Octet>(value, release);
    case tk_string: return take_string<YV_Cxx::StringStreamable, char>(value, release);
    case tk_wstring: return take_string<YV_Cxx::WStringStreamable, WChar>(value, release);
    default: throw BAD_PARAM(0, COMPLETED_NO);
    }
}

} // namespace

Any::Any() : m_type(_tc_null), m_streamable(nullptr) {}

Any::Any(const Any& other) : Any()
{
    *this = other;
}

Any::Any(YV_Streamable* s, YV_CopyMode mode) : Any()
{
    if (s == nullptr)
        return;
    if (mode == YV_CopyShallow) {
        m_streamable = s;
        m_type = TypeCode::_duplicate(s->yv_type());
    } else {
        yv_adopt(s->yv_clone(), s->yv_type());
    }
}

Any::Any(TypeCode_ptr tc, void* value, Boolean release) : Any()
{
    if (tc == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    if (value != nullptr)
        yv_adopt(take_value(tc, value, release), tc);
    else
        type(tc);
}

Any::~Any()
{
    yv_clear();
}

Any& Any::operator=(const Any& other)
{
    if (this == &other)
        return *this;
    if (other.m_streamable != nullptr)
        yv_adopt(other.m_streamable->yv_clone(), other.m_type);
    else
        type(other.m_type);
    return *this;
}

TypeCode_ptr Any::type() const
{
    return TypeCode::_duplicate(m_type);
}

void Any::type(TypeCode_ptr tc)
{
    yv_clear();
    m_type = TypeCode::_duplicate(tc ? tc : _tc_null);
}

void Any::yv_adopt(std::unique_ptr<YV_Streamable> s, TypeCode_ptr tc)
{
    TypeCode_ptr keep = TypeCode::_duplicate(tc ? tc : _tc_null);
    yv_clear();
    m_owned = std::move(s);
    m_streamable = m_owned.get();
    m_type = keep;
}

void Any::yv_clear()
{
    m_streamable = nullptr;
    m_owned.reset();
    release(m_type);
    m_type = _tc_null;
}

void Any::operator<<=(from_boolean v) { insert<YV_Cxx::BasicStreamable<Boolean>>(*this, v.val, _tc_boolean); }
void Any::operator<<=(from_char v) { insert<YV_Cxx::BasicStreamable<Char>>(*this, v.val, _tc_char); }
void Any::operator<<=(from_wchar v) { insert<YV_Cxx::BasicStreamable<WChar>>(*this, v.val, _tc_wchar); }
void Any::operator<<=(from_octet v) { insert<YV_Cxx::BasicStreamable<Octet>>(*this, v.val, _tc_octet); }

void Any::operator<<=(from_string v)
{
    char* s = const_cast<char*>(v.val);
    TypeCode_ptr tc = v.bound == 0 ? _tc_string : TypeCode::_yv_create(tk_string, v.bound);
    insert<YV_Cxx::StringStreamable>(*this, s, tc);
    if (v.bound != 0)
        release(tc);
}

Boolean Any::operator>>=(to_boolean v) const { return extract_basic(*this, v.ref); }
Boolean Any::operator>>=(to_char v) const { return extract_basic(*this, v.ref); }
Boolean Any::operator>>=(to_wchar v) const { return extract_basic(*this, v.ref); }
Boolean Any::operator>>=(to_octet v) const { return extract_basic(*this, v.ref); }

void operator<<=(Any& a, Short v) { insert<YV_Cxx::BasicStreamable<Short>>(a, v, _tc_short); }
void operator<<=(Any& a, UShort v) { insert<YV_Cxx::BasicStreamable<UShort>>(a, v, _tc_ushort); }
void operator<<=(Any& a, Long v) { insert<YV_Cxx::BasicStreamable<Long>>(a, v, _tc_long); }
void operator<<=(Any& a, ULong v) { insert<YV_Cxx::BasicStreamable<ULong>>(a, v, _tc_ulong); }
void operator<<=(Any& a, LongLong v) { insert<YV_Cxx::BasicStreamable<LongLong>>(a, v, _tc_longlong); }
void operator<<=(Any& a, ULongLong v) { insert<YV_Cxx::BasicStreamable<ULongLong>>(a, v, _tc_ulonglong); }
void operator<<=(Any& a, Float v) { insert<YV_Cxx::BasicStreamable<Float>>(a, v, _tc_float); }
void operator<<=(Any& a, Double v) { insert<YV_Cxx::BasicStreamable<Double>>(a, v, _tc_double); }
void operator<<=(Any& a, LongDouble v) { insert<YV_Cxx::BasicStreamable<LongDouble>>(a, v, _tc_longdouble); }

void operator<<=(Any& a, const char* v)
{
    insert<YV_Cxx::StringStreamable>(a, const_cast<char*>(v), _tc_string);
}

void operator<<=(Any& a, const WChar* v)
{
    insert<YV_Cxx::WStringStreamable>(a, const_cast<WChar*>(v), _tc_wstring);
}

void operator<<=(Any& a, const Any& v)
{
    insert<YV_Cxx::AnyStreamable>(a, const_cast<Any*>(&v), _tc_any);
}

Boolean operator>>=(const Any& a, Short& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, UShort& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, Long& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, ULong& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, LongLong& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, ULongLong& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, Float& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, Double& v) { return extract_basic(a, v); }
Boolean operator>>=(const Any& a, LongDouble& v) { return extract_basic(a, v); }

Boolean operator>>=(const Any& a, const char*& v)
{
    if (const YV_Cxx::StringStreamable* s = held<YV_Cxx::StringStreamable>(a)) {
        v = s->extract();
        return true;
    }
    return false;
}

Boolean operator>>=(const Any& a, const WChar*& v)
{
    if (const YV_Cxx::WStringStreamable* s = held<YV_Cxx::WStringStreamable>(a)) {
        v = s->extract();
        return true;
    }
    return false;
}

Boolean operator>>=(const Any& a, const Any*& v)
{
    if (const YV_Cxx::AnyStreamable* s = held<YV_Cxx::AnyStreamable>(a)) {
        v = s->extract();
        return true;
    }
    return false;
}

} // namespace CORBA
