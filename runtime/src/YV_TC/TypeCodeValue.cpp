#include "TypeCodeValue.h"

#include "ValueTranscoder.h"
#include "zantic_sys/YV_CDR/InputStream.h"
#include "zantic_sys/YV_Cxx/ValueMarshal.h"

#include <unordered_map>
#include <utility>

namespace YV_TC {

TypeCodeValue::TypeCodeValue(CORBA::TypeCode_ptr tc) : m_type(CORBA::TypeCode::_duplicate(tc->yv_unaliased()))
{
    // Its own id, then those of the bases it may be truncated to.
    CORBA::TypeCode_ptr t = m_type.in();
    m_ids.push_back(t->yv_id());
    while (t->kind() == CORBA::tk_value && t->yv_modifier() == CORBA::VM_TRUNCATABLE && t->yv_content() != nullptr &&
           t->yv_content()->yv_unaliased()->kind() == CORBA::tk_value) {
        t = t->yv_content()->yv_unaliased();
        m_ids.push_back(t->yv_id());
    }
}

CORBA::ValueBase* TypeCodeValue::read(YV_CDR::InputStream& in, CORBA::TypeCode_ptr tc)
{
    const CORBA::TypeCode_ptr t = tc->yv_unaliased();
    if (t->kind() == CORBA::tk_abstract_interface)
        // The value's type is not in the type code: its class must be here.
        return YV_Cxx::read_value(in);
    if (t->kind() == CORBA::tk_value && t->yv_modifier() == CORBA::VM_CUSTOM)
        // Custom state has no type code to read it by.
        throw CORBA::NO_IMPLEMENT(0, CORBA::COMPLETED_NO);
    return YV_Cxx::read_value_made(in, t->yv_id(), [t] { return new TypeCodeValue(t); });
}

void TypeCodeValue::cut(CORBA::ValueBase* v)
{
    std::vector<YV_Cxx::Value_var<CORBA::ValueBase>> dropped;
    std::vector<TypeCodeValue*> pending;
    if (auto* t = dynamic_cast<TypeCodeValue*>(v))
        pending.push_back(t);
    while (!pending.empty()) {
        TypeCodeValue* t = pending.back();
        pending.pop_back();
        for (auto& nested : t->m_values) {
            if (auto* n = dynamic_cast<TypeCodeValue*>(nested.in()))
                pending.push_back(n);
            dropped.push_back(std::move(nested));
        }
        t->m_values.clear();
    }
}

void TypeCodeValue::drop(std::vector<YV_Cxx::Value_var<CORBA::ValueBase>>& roots)
{
    // References to each TypeCodeValue of the graphs from the roots and the
    // graphs: when they are all it has, nothing else reaches it.
    std::unordered_map<TypeCodeValue*, CORBA::ULong> held;
    std::vector<TypeCodeValue*> pending;
    auto note = [&](CORBA::ValueBase* v) {
        auto* t = dynamic_cast<TypeCodeValue*>(v);
        if (t == nullptr)
            return;
        auto entry = held.emplace(t, 0);
        if (entry.second)
            pending.push_back(t);
        ++entry.first->second;
    };
    for (const auto& r : roots)
        note(r.in());
    while (!pending.empty()) {
        TypeCodeValue* t = pending.back();
        pending.pop_back();
        for (const auto& n : t->m_values)
            note(n.in());
    }
    for (const auto& entry : held)
        if (entry.first->_refcount_value() != entry.second)
            return;
    for (const auto& r : roots)
        cut(r.in());
}

const char* const* TypeCodeValue::_yv_type_ids(CORBA::ULong& count) const
{
    count = static_cast<CORBA::ULong>(m_ids.size());
    return m_ids.data();
}

CORBA::Boolean TypeCodeValue::_yv_is_chunked() const { return m_ids.size() > 1; }

void TypeCodeValue::_yv_marshal_state(YV_CDR::OutputStream& out) const
{
    YV_CDR::InputStream in(m_state.data(), m_state.size(), m_state.little_endian());
    in.giop_minor(m_state.giop_minor());
    ValueTranscoder t(in, &out);
    t.emit_values(m_values);
    t.state(m_type.in());
}

void TypeCodeValue::_yv_unmarshal_state(YV_CDR::InputStream& in)
{
    m_state.giop_minor(in.giop_minor());
    ValueTranscoder t(in, &m_state);
    t.collect_values(m_values);
    t.state(m_type.in());
}

} // namespace YV_TC
