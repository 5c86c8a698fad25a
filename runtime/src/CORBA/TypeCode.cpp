#include "zantic_sys/CORBA/TypeCode.h"

#include "../YV_TC/TypeCodeComparison.h"
#include "../YV_TC/TypeCodeCopier.h"
#include "../YV_TC/TypeCodeGraph.h"
#include "../YV_TC/TypeCodeKinds.h"
#include "../YV_TC/TypeCodeReader.h"
#include "../YV_TC/TypeCodeWriter.h"
#include "zantic_sys/CORBA/Any.h"
#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/YV_Cxx/BasicStreamable.h"

#include <memory>

namespace CORBA {

namespace {

void require(bool ok)
{
    if (!ok)
        throw TypeCode::BadKind();
}

// An any holding `value` as a streamable of class BasicStreamable<T>, of
// type `tc`.
template <class T>
Any* label_any(TypeCode_ptr tc, T value)
{
    std::unique_ptr<Any> a(new Any());
    std::unique_ptr<YV_Cxx::BasicStreamable<T>> s(new YV_Cxx::BasicStreamable<T>());
    s->extract() = value;
    a->yv_adopt(std::move(s), tc);
    return a.release(); // the caller owns the any
}

} // namespace

TypeCode_ptr TypeCode::_yv_create(TCKind kind, ULong length, const char* id, const char* name)
{
    YV_TC::GraphHolder holder;
    TypeCode* tc = holder.get().make(kind);
    holder.get().set_id_and_name(tc, id, name);
    holder.get().set_length(tc, length);
    return holder.hand_over(tc);
}

Boolean TypeCode::equal(TypeCode_ptr other) const
{
    return YV_TC::TypeCodeComparison(false).same(const_cast<TypeCode*>(this), other);
}

Boolean TypeCode::equivalent(TypeCode_ptr other) const
{
    return YV_TC::TypeCodeComparison(true).same(const_cast<TypeCode*>(this), other);
}

TypeCode_ptr TypeCode::get_compact_typecode() const
{
    YV_TC::GraphHolder holder;
    return holder.hand_over(YV_TC::TypeCodeCopier(holder.get()).copy(const_cast<TypeCode*>(this)));
}

const char* TypeCode::id() const
{
    require(YV_TC::has_id(m_kind) || m_placeholder);
    return m_id;
}

const char* TypeCode::name() const
{
    require(YV_TC::has_id(m_kind));
    return m_name;
}

ULong TypeCode::member_count() const
{
    require(YV_TC::has_members(m_kind));
    return m_count;
}

const char* TypeCode::member_name(ULong index) const
{
    require(YV_TC::has_members(m_kind));
    if (index >= m_count)
        throw Bounds();
    return m_members[index].name;
}

TypeCode_ptr TypeCode::member_type(ULong index) const
{
    require(YV_TC::has_members(m_kind) && m_kind != tk_enum);
    if (index >= m_count)
        throw Bounds();
    return _duplicate(yv_member_type(index));
}

Any* TypeCode::member_label(ULong index) const
{
    require(m_kind == tk_union);
    if (index >= m_count)
        throw Bounds();
    if (static_cast<Long>(index) == m_default)
        return label_any<Octet>(_tc_octet, 0);
    const TypeCode_ptr disc = yv_content();
    const LongLong label = m_members[index].label;
    switch (disc->yv_unaliased()->kind()) {
    case tk_short: return label_any(disc, static_cast<Short>(label));
    case tk_ushort: return label_any(disc, static_cast<UShort>(label));
    case tk_long: return label_any(disc, static_cast<Long>(label));
    case tk_ulong:
    case tk_enum: return label_any(disc, static_cast<ULong>(label));
    case tk_longlong: return label_any(disc, static_cast<LongLong>(label));
    case tk_ulonglong: return label_any(disc, static_cast<ULongLong>(label));
    case tk_boolean: return label_any(disc, static_cast<Boolean>(label != 0));
    case tk_char: return label_any(disc, static_cast<Char>(label));
    case tk_wchar: return label_any(disc, static_cast<WChar>(label));
    default: throw BAD_TYPECODE(0, COMPLETED_NO);
    }
}

TypeCode_ptr TypeCode::discriminator_type() const
{
    require(m_kind == tk_union);
    return _duplicate(yv_content());
}

Long TypeCode::default_index() const
{
    require(m_kind == tk_union);
    return m_default;
}

ULong TypeCode::length() const
{
    require(m_kind == tk_string || m_kind == tk_wstring || m_kind == tk_sequence || m_kind == tk_array);
    return m_length;
}

TypeCode_ptr TypeCode::content_type() const
{
    require(m_kind == tk_sequence || m_kind == tk_array || m_kind == tk_alias || m_kind == tk_value_box);
    return _duplicate(yv_content());
}

UShort TypeCode::fixed_digits() const
{
    require(m_kind == tk_fixed);
    return m_digits;
}

Short TypeCode::fixed_scale() const
{
    require(m_kind == tk_fixed);
    return m_scale;
}

Short TypeCode::member_visibility(ULong index) const
{
    require(m_kind == tk_value);
    if (index >= m_count)
        throw Bounds();
    return m_members[index].visibility;
}

ValueModifier TypeCode::type_modifier() const
{
    require(m_kind == tk_value);
    return m_modifier;
}

TypeCode_ptr TypeCode::concrete_base_type() const
{
    require(m_kind == tk_value);
    const TypeCode_ptr base = yv_content();
    return base != nullptr && base->kind() != tk_null ? _duplicate(base) : nullptr;
}

TypeCode_ptr TypeCode::yv_unaliased() const
{
    const TypeCode* tc = this;
    while (tc->m_kind == tk_alias && tc->yv_content() != nullptr)
        tc = tc->yv_content();
    return const_cast<TypeCode*>(tc);
}

void TypeCode::_yv_write(YV_CDR::OutputStream& out, TypeCode_ptr tc)
{
    YV_TC::TypeCodeWriter(out).write(tc);
}

TypeCode_ptr TypeCode::_yv_read(YV_CDR::InputStream& in)
{
    return YV_TC::TypeCodeReader().read(in);
}

TypeCode_ptr TypeCode::_duplicate(TypeCode_ptr tc)
{
    if (tc != nullptr && tc->m_graph != nullptr)
        tc->m_graph->add_ref();
    return tc;
}

void TypeCode::_yv_release()
{
    if (m_graph != nullptr)
        m_graph->release();
}

void release(TypeCode_ptr tc)
{
    if (tc != nullptr)
        tc->_yv_release();
}

namespace {

TypeCode tc_null = TypeCode::yv_basic(tk_null);
TypeCode tc_void = TypeCode::yv_basic(tk_void);
TypeCode tc_short = TypeCode::yv_basic(tk_short);
TypeCode tc_long = TypeCode::yv_basic(tk_long);
TypeCode tc_ushort = TypeCode::yv_basic(tk_ushort);
TypeCode tc_ulong = TypeCode::yv_basic(tk_ulong);
TypeCode tc_float = TypeCode::yv_basic(tk_float);
TypeCode tc_double = TypeCode::yv_basic(tk_double);
TypeCode tc_boolean = TypeCode::yv_basic(tk_boolean);
TypeCode tc_char = TypeCode::yv_basic(tk_char);
TypeCode tc_octet = TypeCode::yv_basic(tk_octet);
TypeCode tc_any = TypeCode::yv_basic(tk_any);
TypeCode tc_TypeCode = TypeCode::yv_basic(tk_TypeCode);
TypeCode tc_Principal = TypeCode::yv_basic(tk_Principal);
TypeCode tc_Object = TypeCode::yv_objref(tk_objref, "IDL:omg.org/CORBA/Object:1.0", "Object");
TypeCode tc_string = TypeCode::yv_string(tk_string, 0);
TypeCode tc_longlong = TypeCode::yv_basic(tk_longlong);
TypeCode tc_ulonglong = TypeCode::yv_basic(tk_ulonglong);
TypeCode tc_longdouble = TypeCode::yv_basic(tk_longdouble);
TypeCode tc_wchar = TypeCode::yv_basic(tk_wchar);
TypeCode tc_wstring = TypeCode::yv_string(tk_wstring, 0);
TypeCode tc_ValueBase = TypeCode::yv_value("IDL:omg.org/CORBA/ValueBase:1.0", "ValueBase", VM_NONE, nullptr, nullptr, 0);
TypeCode tc_AbstractBase =
    TypeCode::yv_objref(tk_abstract_interface, "IDL:omg.org/CORBA/AbstractBase:1.0", "AbstractBase");
TypeCode tc_LocalBase = TypeCode::yv_objref(tk_local_interface, "IDL:omg.org/CORBA/LocalBase:1.0", "LocalBase");

} // namespace

const TypeCode_ptr _tc_null = &tc_null;
const TypeCode_ptr _tc_void = &tc_void;
const TypeCode_ptr _tc_short = &tc_short;
const TypeCode_ptr _tc_long = &tc_long;
const TypeCode_ptr _tc_ushort = &tc_ushort;
const TypeCode_ptr _tc_ulong = &tc_ulong;
const TypeCode_ptr _tc_float = &tc_float;
const TypeCode_ptr _tc_double = &tc_double;
const TypeCode_ptr _tc_boolean = &tc_boolean;
const TypeCode_ptr _tc_char = &tc_char;
const TypeCode_ptr _tc_octet = &tc_octet;
const TypeCode_ptr _tc_any = &tc_any;
const TypeCode_ptr _tc_TypeCode = &tc_TypeCode;
const TypeCode_ptr _tc_Principal = &tc_Principal;
const TypeCode_ptr _tc_Object = &tc_Object;
const TypeCode_ptr _tc_string = &tc_string;
const TypeCode_ptr _tc_longlong = &tc_longlong;
const TypeCode_ptr _tc_ulonglong = &tc_ulonglong;
const TypeCode_ptr _tc_longdouble = &tc_longdouble;
const TypeCode_ptr _tc_wchar = &tc_wchar;
const TypeCode_ptr _tc_wstring = &tc_wstring;
const TypeCode_ptr _tc_ValueBase = &tc_ValueBase;
const TypeCode_ptr _tc_AbstractBase = &tc_AbstractBase;
const TypeCode_ptr _tc_LocalBase = &tc_LocalBase;

} // namespace CORBA
