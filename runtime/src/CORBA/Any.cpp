#include "zantic_sys/CORBA/Any.h"

#include "../YV_TC/EncodedValue.h"
#include "../YV_TC/TypeCodeGraph.h"
#include "../YV_TC/TypeCodeValue.h"
#include "../YV_TC/ValueComparer.h"
#include "../YV_TC/ValueTranscoder.h"
#include "omg/CORBA.hh"
#include "zantic_sys/CORBA/Fixed.h"
#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/TypeCode.h"
#include "zantic_sys/CORBA/string_functions.h"
#include "zantic_sys/YV_Cxx/AnyStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"
#include "zantic_sys/YV_Cxx/BasicStringStreamable.h"
#include "zantic_sys/YV_Cxx/RefStreamable.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include <cstring>
#include <cwchar>
#include <utility>

namespace CORBA {

namespace {

typedef YV_Cxx::ObjRefStreamable<TypeCode> TypeCodeStreamable;
typedef YV_Cxx::ObjRefStreamable<Object> ObjectStreamable;
typedef YV_Cxx::BasicStreamable<Fixed> FixedStreamable;

// Makes `a` own a streamable of class S holding a copy of `value`.
template <class S, class V>
void insert(Any& a, const V& value, TypeCode_ptr tc)
{
    std::unique_ptr<S> s(new S());
    S::yv_assign(s->extract(), value);
    a.yv_adopt(std::move(s), tc);
}

// Makes `a` own a streamable of class S that takes `value` over.
template <class S, class V>
void adopt(Any& a, V value, TypeCode_ptr tc)
{
    std::unique_ptr<S> s(new S());
    s->extract() = value;
    a.yv_adopt(std::move(s), tc);
}

template <class T>
Boolean extract_basic(const Any& a, TypeCode_ptr tc, T& v)
{
    if (const YV_Cxx::BasicStreamable<T>* s = a.yv_value_as<YV_Cxx::BasicStreamable<T>>(tc)) {
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
        delete typed; // handed over by the caller
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
        delete slot; // handed over by the caller
    }
    return s;
}

std::unique_ptr<YV_Streamable> take_value(TypeCode_ptr tc, void* value, Boolean release)
{
    switch (tc->yv_unaliased()->kind()) {
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

// A new reference to the type code of a string or wide string with `bound`
// (0: unbounded, the static type code).
TypeCode_ptr string_tc(TCKind kind, ULong bound)
{
    if (bound == 0)
        return kind == tk_string ? _tc_string : _tc_wstring;
    return TypeCode::_yv_create(kind, bound);
}

// True when `tc` is (an alias of) a string type of `kind` and `bound`.
bool is_string_tc(TypeCode_ptr tc, TCKind kind, ULong bound)
{
    const TypeCode_ptr t = tc->yv_unaliased();
    return t->kind() == kind && t->yv_length() == bound;
}

template <class S, class CharT>
void insert_string(Any& a, TCKind kind, CharT* s, ULong bound, Boolean nocopy)
{
    if (bound != 0 && s != nullptr && std::char_traits<CharT>::length(s) > bound) {
        if (nocopy)
            YV_Cxx::string_free(s);
        throw BAD_PARAM(0, COMPLETED_NO);
    }
    const TypeCode_ptr tc = string_tc(kind, bound);
    try {
        if (nocopy)
            adopt<S>(a, s, tc);
        else
            insert<S>(a, s, tc);
    } catch (...) {
        release(tc);
        throw;
    }
    release(tc);
}

template <class S, class CharT>
Boolean extract_string(const Any& a, TCKind kind, ULong bound, const CharT*& v)
{
    if (!is_string_tc(a.yv_type(), kind, bound))
        return false;
    if (const S* s = a.yv_value_as<S>(a.yv_type())) {
        v = s->extract();
        return true;
    }
    return false;
}

} // namespace

Any::Any() : m_type(_tc_null), m_streamable(nullptr) {}

Any::Any(const Any& other) : Any()
{
    *this = other;
}

Any::Any(Any&& other) noexcept : Any()
{
    *this = std::move(other);
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
    else if (other.m_encoded != nullptr)
        yv_set_encoded(other.m_type, other.m_encoded);
    else {
        // Copying an any without a value drops ours, whatever its type.
        yv_clear();
        type(other.m_type);
    }
    return *this;
}

Any& Any::operator=(Any&& other) noexcept
{
    if (this == &other)
        return *this;
    yv_clear();
    std::swap(m_type, other.m_type);
    std::swap(m_streamable, other.m_streamable);
    std::swap(m_owned, other.m_owned);
    std::swap(m_encoded, other.m_encoded);
    return *this;
}

TypeCode_ptr Any::type() const
{
    return TypeCode::_duplicate(m_type);
}

void Any::type(TypeCode_ptr tc)
{
    if (tc == nullptr)
        tc = _tc_null;
    if (yv_has_value()) {
        if (!m_type->equivalent(tc))
            throw BAD_TYPECODE(0, COMPLETED_NO);
        TypeCode_ptr old = m_type;
        m_type = TypeCode::_duplicate(tc);
        release(old);
        return;
    }
    yv_clear();
    m_type = TypeCode::_duplicate(tc);
}

bool Any::yv_type_is(TypeCode_ptr tc) const
{
    return m_type == tc || (tc != nullptr && m_type->equivalent(tc));
}

void Any::yv_adopt(std::unique_ptr<YV_Streamable> s, TypeCode_ptr tc)
{
    TypeCode_ptr keep = TypeCode::_duplicate(tc ? tc : _tc_null);
    yv_clear();
    m_owned = std::move(s);
    m_streamable = m_owned.get();
    m_type = keep;
}

void Any::yv_set_encoded(TypeCode_ptr tc, std::shared_ptr<const YV_TC::EncodedValue> v)
{
    TypeCode_ptr keep = TypeCode::_duplicate(tc ? tc : _tc_null);
    std::shared_ptr<const YV_TC::EncodedValue> value = std::move(v);
    yv_clear();
    m_encoded = std::move(value);
    m_type = keep;
}

void Any::yv_keep(std::unique_ptr<YV_Streamable> s)
{
    m_owned = std::move(s);
    m_streamable = m_owned.get();
    m_encoded.reset();
}

YV_CDR::InputStream Any::yv_value_stream(YV_CDR::OutputStream& scratch) const
{
    if (m_encoded != nullptr && !m_encoded->values_apart)
        return m_encoded->stream();
    yv_write_value(scratch);
    YV_CDR::InputStream in(scratch.data(), scratch.size(), scratch.little_endian());
    in.giop_minor(scratch.giop_minor());
    return in;
}

void Any::yv_convert_into(YV_Streamable& s) const
{
    YV_CDR::OutputStream scratch;
    YV_CDR::InputStream in = yv_value_stream(scratch);
    s.yv_read(in);
}

void Any::yv_write_value(YV_CDR::OutputStream& out) const
{
    if (const TypeCodeStreamable* t = TypeCodeStreamable::_downcast(m_streamable)) {
        TypeCode::_yv_write(out, t->extract());
        return;
    }
    if (const FixedStreamable* f = FixedStreamable::_downcast(m_streamable)) {
        const TypeCode_ptr fixed = m_type->yv_unaliased();
        out.write_fixed(f->extract(), fixed->yv_digits(), static_cast<Short>(fixed->yv_scale()));
        return;
    }
    if (m_streamable != nullptr) {
        m_streamable->yv_write(out);
        return;
    }
    if (m_encoded == nullptr)
        throw MARSHAL(0, COMPLETED_NO);
    const YV_TC::EncodedValue& e = *m_encoded;
    if (e.values_apart) {
        YV_CDR::InputStream in = e.stream();
        YV_TC::ValueTranscoder t(in, &out);
        t.emit_values(e.values);
        t.value(m_type);
        return;
    }
    const std::size_t at = (out.size() - out.alignment_base()) & 7;
    if (e.little_endian == out.little_endian() && e.phase == at && e.giop_minor == out.giop_minor()) {
        if (!e.octets.empty())
            std::memcpy(out.grow(e.octets.size()), e.octets.data(), e.octets.size());
        return;
    }
    YV_CDR::InputStream in = e.stream();
    YV_TC::ValueTranscoder(in, &out).value(m_type);
}

bool Any::yv_equal(const Any& other) const
{
    if (!m_type->equivalent(other.m_type) || yv_has_value() != other.yv_has_value())
        return false;
    if (!yv_has_value())
        return true;
    YV_CDR::OutputStream scratch_a;
    YV_CDR::OutputStream scratch_b;
    YV_CDR::InputStream a = yv_value_stream(scratch_a);
    YV_CDR::InputStream b = other.yv_value_stream(scratch_b);
    return YV_TC::ValueComparer(a, b).equal(m_type);
}

void Any::yv_clear()
{
    m_streamable = nullptr;
    m_owned.reset();
    m_encoded.reset();
    release(m_type);
    m_type = _tc_null;
}

void Any::operator<<=(from_boolean v) { insert<YV_Cxx::BasicStreamable<Boolean>>(*this, v.val, _tc_boolean); }
void Any::operator<<=(from_char v) { insert<YV_Cxx::BasicStreamable<Char>>(*this, v.val, _tc_char); }
void Any::operator<<=(from_wchar v) { insert<YV_Cxx::BasicStreamable<WChar>>(*this, v.val, _tc_wchar); }
void Any::operator<<=(from_octet v) { insert<YV_Cxx::BasicStreamable<Octet>>(*this, v.val, _tc_octet); }

void Any::operator<<=(from_string v)
{
    insert_string<YV_Cxx::StringStreamable>(*this, tk_string, v.val, v.bound, v.nocopy);
}

void Any::operator<<=(from_wstring v)
{
    insert_string<YV_Cxx::WStringStreamable>(*this, tk_wstring, v.val, v.bound, v.nocopy);
}

void Any::operator<<=(from_fixed v)
{
    YV_TC::GraphHolder holder;
    TypeCode* made = holder.get().make(tk_fixed);
    holder.get().set_fixed(made, v.digits, static_cast<Short>(v.scale));
    const TypeCode_var tc = holder.hand_over(made);
    insert<FixedStreamable>(*this, v.val, tc.in());
}

Boolean Any::operator>>=(to_boolean v) const { return extract_basic(*this, _tc_boolean, v.ref); }
Boolean Any::operator>>=(to_char v) const { return extract_basic(*this, _tc_char, v.ref); }
Boolean Any::operator>>=(to_wchar v) const { return extract_basic(*this, _tc_wchar, v.ref); }
Boolean Any::operator>>=(to_octet v) const { return extract_basic(*this, _tc_octet, v.ref); }

Boolean Any::operator>>=(to_string v) const
{
    return extract_string<YV_Cxx::StringStreamable>(*this, tk_string, v.bound, v.val);
}

Boolean Any::operator>>=(to_wstring v) const
{
    return extract_string<YV_Cxx::WStringStreamable>(*this, tk_wstring, v.bound, v.val);
}

Boolean Any::operator>>=(to_fixed v) const
{
    const TypeCode_ptr t = m_type->yv_unaliased();
    if (t->kind() != tk_fixed || t->yv_digits() != v.digits || t->yv_scale() != static_cast<Short>(v.scale) ||
        !yv_has_value())
        return false;
    if (const FixedStreamable* s = FixedStreamable::_downcast(m_streamable)) {
        v.val = s->extract();
        return true;
    }
    // Encoded, or a fixed-point type of generated code: its packed decimal.
    YV_CDR::OutputStream scratch;
    YV_CDR::InputStream in = yv_value_stream(scratch);
    v.val = in.read_fixed(v.digits, static_cast<Short>(v.scale));
    return true;
}

Boolean Any::operator>>=(to_object v) const
{
    if (m_type->yv_unaliased()->kind() != tk_objref)
        return false;
    if (const ObjectStreamable* s = yv_value_as<ObjectStreamable>(m_type)) {
        v.ref = Object::_duplicate(s->extract());
        return true;
    }
    return false;
}

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

void operator<<=(Any& a, Any* v)
{
    adopt<YV_Cxx::AnyStreamable>(a, v, _tc_any);
}

void operator<<=(Any& a, TypeCode_ptr v)
{
    insert<TypeCodeStreamable>(a, v, _tc_TypeCode);
}

void operator<<=(Any& a, TypeCode_ptr* v)
{
    adopt<TypeCodeStreamable>(a, *v, _tc_TypeCode);
    *v = nullptr;
}

void operator<<=(Any& a, Object_ptr v)
{
    insert<ObjectStreamable>(a, v, _tc_Object);
}

void operator<<=(Any& a, Object_ptr* v)
{
    adopt<ObjectStreamable>(a, *v, _tc_Object);
    *v = nullptr;
}

Boolean operator>>=(const Any& a, Short& v) { return extract_basic(a, _tc_short, v); }
Boolean operator>>=(const Any& a, UShort& v) { return extract_basic(a, _tc_ushort, v); }
Boolean operator>>=(const Any& a, Long& v) { return extract_basic(a, _tc_long, v); }
Boolean operator>>=(const Any& a, ULong& v) { return extract_basic(a, _tc_ulong, v); }
Boolean operator>>=(const Any& a, LongLong& v) { return extract_basic(a, _tc_longlong, v); }
Boolean operator>>=(const Any& a, ULongLong& v) { return extract_basic(a, _tc_ulonglong, v); }
Boolean operator>>=(const Any& a, Float& v) { return extract_basic(a, _tc_float, v); }
Boolean operator>>=(const Any& a, Double& v) { return extract_basic(a, _tc_double, v); }
Boolean operator>>=(const Any& a, LongDouble& v) { return extract_basic(a, _tc_longdouble, v); }

Boolean operator>>=(const Any& a, const char*& v)
{
    return extract_string<YV_Cxx::StringStreamable>(a, tk_string, 0, v);
}

Boolean operator>>=(const Any& a, const WChar*& v)
{
    return extract_string<YV_Cxx::WStringStreamable>(a, tk_wstring, 0, v);
}

Boolean operator>>=(const Any& a, const Any*& v)
{
    if (const YV_Cxx::AnyStreamable* s = a.yv_value_as<YV_Cxx::AnyStreamable>(_tc_any)) {
        v = s->extract();
        return v != nullptr;
    }
    return false;
}

Boolean operator>>=(const Any& a, TypeCode_ptr& v)
{
    if (const TypeCodeStreamable* s = a.yv_value_as<TypeCodeStreamable>(_tc_TypeCode)) {
        v = s->extract();
        return true;
    }
    return false;
}

Boolean operator>>=(const Any& a, Object_ptr& v)
{
    if (const ObjectStreamable* s = a.yv_value_as<ObjectStreamable>(_tc_Object)) {
        v = s->extract();
        return true;
    }
    return false;
}

} // namespace CORBA

namespace YV_Cxx {

void Marshal<CORBA::Any>::write(YV_CDR::OutputStream& out, const CORBA::Any& v)
{
    CORBA::TypeCode::_yv_write(out, v.yv_type());
    if (v.yv_has_value())
        v.yv_write_value(out);
    else if (v.yv_type()->yv_unaliased()->kind() > CORBA::tk_void)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO); // a type without a value
}

void Marshal<CORBA::Any>::read(YV_CDR::InputStream& in, CORBA::Any& v)
{
    const CORBA::TypeCode_var tc = CORBA::TypeCode::_yv_read(in);
    const CORBA::TCKind kind = tc->yv_unaliased()->kind();
    if (kind == CORBA::tk_null || kind == CORBA::tk_void) {
        v = CORBA::Any();
        v.type(tc.in());
        return;
    }
    std::shared_ptr<YV_TC::EncodedValue> value = std::make_shared<YV_TC::EncodedValue>();
    if (YV_TC::ValueTranscoder::may_hold_values(tc.in())) {
        // Values read as values (sharing with the rest of the message), the
        // rest transcoded as this host writes it.
        YV_CDR::OutputStream rest;
        rest.giop_minor(in.giop_minor());
        YV_TC::ValueTranscoder t(in, &rest);
        t.collect_values(value->values);
        t.value(tc.in());
        // The any holds them from now on.
        YV_Cxx::disown_read_values(in, &YV_TC::TypeCodeValue::is);
        value->values_apart = true;
        value->little_endian = rest.little_endian();
        value->giop_minor = rest.giop_minor();
        value->octets.assign(rest.data(), rest.data() + rest.size());
        v.yv_set_encoded(tc.in(), std::move(value));
        return;
    }
    value->little_endian = in.little_endian();
    value->phase = (in.offset() + in.phase()) & 7;
    value->giop_minor = in.giop_minor();
    const unsigned char* start = in.cursor();
    YV_TC::ValueTranscoder(in, nullptr).value(tc.in());
    value->octets.assign(start, in.cursor());
    v.yv_set_encoded(tc.in(), std::move(value));
}

} // namespace YV_Cxx
