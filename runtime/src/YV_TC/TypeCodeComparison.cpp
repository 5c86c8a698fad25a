#include "TypeCodeComparison.h"

#include "Discriminator.h"
#include "TypeCodeKinds.h"

#include <algorithm>
#include <cstring>

namespace YV_TC {

bool TypeCodeComparison::same(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b)
{
    if (m_equivalence) {
        a = a != nullptr ? a->yv_unaliased() : nullptr;
        b = b != nullptr ? b->yv_unaliased() : nullptr;
    }
    if (a == b)
        return true;
    if (a == nullptr || b == nullptr || a->kind() != b->kind())
        return false;
    if (a->yv_is_placeholder() || b->yv_is_placeholder())
        return a->yv_is_placeholder() && b->yv_is_placeholder() && std::strcmp(a->yv_id(), b->yv_id()) == 0;
    const std::pair<CORBA::TypeCode_ptr, CORBA::TypeCode_ptr> pair(a, b);
    if (std::find(m_in_progress.begin(), m_in_progress.end(), pair) != m_in_progress.end())
        return true;
    m_in_progress.push_back(pair);
    const bool result = same_parameters(a, b);
    m_in_progress.pop_back();
    return result;
}

bool TypeCodeComparison::same_names(const char* a, const char* b) const
{
    return m_equivalence || std::strcmp(a, b) == 0;
}

bool TypeCodeComparison::same_parameters(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b)
{
    const CORBA::TCKind kind = a->kind();
    if (has_id(kind)) {
        const bool both_ids = *a->yv_id() != '\0' && *b->yv_id() != '\0';
        if (m_equivalence && both_ids)
            return std::strcmp(a->yv_id(), b->yv_id()) == 0;
        if (!m_equivalence && (std::strcmp(a->yv_id(), b->yv_id()) != 0 || !same_names(a->yv_name(), b->yv_name())))
            return false;
    }
    switch (kind) {
    case CORBA::tk_string:
    case CORBA::tk_wstring:
        return a->yv_length() == b->yv_length();
    case CORBA::tk_sequence:
    case CORBA::tk_array:
        return a->yv_length() == b->yv_length() && same(a->yv_content(), b->yv_content());
    case CORBA::tk_alias:
    case CORBA::tk_value_box:
        return same(a->yv_content(), b->yv_content());
    case CORBA::tk_fixed:
        return a->yv_digits() == b->yv_digits() && a->yv_scale() == b->yv_scale();
    case CORBA::tk_struct:
    case CORBA::tk_except:
    case CORBA::tk_enum:
        return same_members(a, b);
    case CORBA::tk_union:
        return a->yv_default_index() == b->yv_default_index() && same(a->yv_content(), b->yv_content()) &&
               same_members(a, b);
    case CORBA::tk_value:
        return a->yv_modifier() == b->yv_modifier() && same(a->yv_content(), b->yv_content()) && same_members(a, b);
    default:
        return true;
    }
}

bool TypeCodeComparison::same_members(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b)
{
    if (a->yv_member_count() != b->yv_member_count())
        return false;
    const bool is_union = a->kind() == CORBA::tk_union;
    const bool is_value = a->kind() == CORBA::tk_value;
    for (CORBA::ULong i = 0; i < a->yv_member_count(); ++i) {
        const CORBA::TypeCode::Member& ma = a->yv_member(i);
        const CORBA::TypeCode::Member& mb = b->yv_member(i);
        if (!same_names(ma.name, mb.name))
            return false;
        if (is_union && static_cast<CORBA::Long>(i) != a->yv_default_index() &&
            normalise(a->yv_content(), ma.label) != normalise(b->yv_content(), mb.label))
            return false;
        if (is_value && ma.visibility != mb.visibility)
            return false;
        if (a->kind() != CORBA::tk_enum && !same(a->yv_member_type(i), b->yv_member_type(i)))
            return false;
    }
    return true;
}

} // namespace YV_TC
