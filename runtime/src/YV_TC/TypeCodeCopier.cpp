#include "TypeCodeCopier.h"

#include "TypeCodeKinds.h"

#include <vector>

namespace YV_TC {

bool TypeCodeCopier::must_copy(CORBA::TypeCode_ptr tc) const
{
    if (m_compact)
        return has_id(tc->kind()) || tc->kind() == CORBA::tk_sequence || tc->kind() == CORBA::tk_array ||
               tc->yv_is_placeholder();
    return tc->yv_is_placeholder() || (tc->yv_graph() != nullptr && tc->yv_graph()->open());
}

CORBA::TypeCode_ptr TypeCodeCopier::copy(CORBA::TypeCode_ptr tc)
{
    if (tc == nullptr)
        return nullptr;
    if (!m_compact && tc->yv_is_placeholder() && m_id == tc->yv_id())
        return m_target;
    if (!must_copy(tc))
        return tc;
    auto found = m_done.find(tc);
    if (found != m_done.end())
        return found->second;
    if (tc->yv_is_placeholder()) {
        CORBA::TypeCode_ptr p = m_graph.make_placeholder(tc->yv_id());
        m_done.emplace(tc, p);
        return p;
    }
    CORBA::TypeCode* c = m_graph.make(tc->kind());
    m_done.emplace(tc, c);
    if (has_id(tc->kind()))
        m_graph.set_id_and_name(c, tc->yv_id(), m_compact ? "" : tc->yv_name());
    m_graph.set_length(c, tc->yv_length());
    m_graph.set_default_index(c, tc->yv_default_index());
    m_graph.set_fixed(c, tc->yv_digits(), tc->yv_scale());
    m_graph.set_modifier(c, tc->yv_modifier());
    if (CORBA::TypeCode_ptr content = tc->yv_content())
        m_graph.set_content(c, copy(content));
    if (has_members(tc->kind())) {
        std::vector<TypeCodeGraph::MemberSpec> members;
        members.reserve(tc->yv_member_count());
        for (CORBA::ULong i = 0; i < tc->yv_member_count(); ++i) {
            const CORBA::TypeCode::Member& m = tc->yv_member(i);
            members.push_back({m_compact ? std::string() : std::string(m.name), copy(tc->yv_member_type(i)), m.label,
                               m.visibility});
        }
        m_graph.set_members(c, members);
    }
    return c;
}

} // namespace YV_TC
