#include "TypeCodeGraph.h"

namespace YV_TC {

TypeCodeGraph::~TypeCodeGraph()
{
    for (CORBA::TypeCode_ptr tc : m_held)
        CORBA::release(tc);
}

void TypeCodeGraph::release()
{
    if (m_refs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

CORBA::TypeCode* TypeCodeGraph::make(CORBA::TCKind kind)
{
    // Direct initialisation from the maker's value: no copy is made.
    m_codes.emplace_back(new CORBA::TypeCode(CORBA::TypeCode::yv_basic(kind)));
    CORBA::TypeCode* tc = m_codes.back().get();
    tc->m_graph = this;
    return tc;
}

CORBA::TypeCode* TypeCodeGraph::make_placeholder(const char* id)
{
    CORBA::TypeCode* tc = make(CORBA::tk_null);
    tc->m_placeholder = true;
    tc->m_id = text(id);
    m_open = true;
    return tc;
}

void TypeCodeGraph::set_id_and_name(CORBA::TypeCode* tc, const char* id, const char* name)
{
    tc->m_id = text(id);
    tc->m_name = text(name);
}

void TypeCodeGraph::set_content(CORBA::TypeCode* tc, CORBA::TypeCode_ptr content)
{
    tc->m_content = content != nullptr ? slot(content) : nullptr;
}

void TypeCodeGraph::set_members(CORBA::TypeCode* tc, const std::vector<MemberSpec>& members)
{
    m_members.emplace_back();
    std::vector<CORBA::TypeCode::Member>& list = m_members.back();
    list.reserve(members.size());
    for (const MemberSpec& m : members)
        list.push_back({text(m.name.c_str()), m.type != nullptr ? slot(m.type) : nullptr, m.label, m.visibility});
    tc->m_members = list.data();
    tc->m_count = static_cast<CORBA::ULong>(list.size());
}

const char* TypeCodeGraph::text(const char* s)
{
    if (s == nullptr || *s == '\0')
        return "";
    m_texts.emplace_back(s);
    return m_texts.back().c_str();
}

const CORBA::TypeCode_ptr* TypeCodeGraph::slot(CORBA::TypeCode_ptr target)
{
    TypeCodeGraph* other = target->yv_graph();
    if (other != nullptr && other != this) {
        m_held.push_back(CORBA::TypeCode::_duplicate(target));
        if (other->m_open)
            m_open = true;
    }
    m_slots.push_back(target);
    return &m_slots.back();
}

} // namespace YV_TC
