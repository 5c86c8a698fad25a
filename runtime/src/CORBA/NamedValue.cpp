#include "zantic_sys/CORBA/NamedValue.h"

namespace CORBA {

NamedValue::NamedValue(const char* name, const Any& value, Flags flags)
    : m_name(name ? name : ""), m_owned(new Any(value)), m_value(m_owned.get()), m_flags(flags)
{
}

NamedValue::NamedValue(Any& value, Flags flags) : m_value(&value), m_flags(flags) {}

NamedValue::~NamedValue() = default;

} // namespace CORBA
