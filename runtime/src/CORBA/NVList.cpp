#include "zantic_sys/CORBA/NVList.h"

#include "zantic_sys/CORBA/SystemException.h"

namespace CORBA {

NVList::NVList() = default;

NVList::NVList(ULong n, NamedValue_ptr* values)
{
    if (values != nullptr)
        m_items.assign(values, values + n);
}

NVList::~NVList() = default;

NamedValue_ptr NVList::item(ULong index) const
{
    if (index >= m_items.size())
        throw BAD_PARAM(0, COMPLETED_NO);
    return m_items[index];
}

NamedValue_ptr NVList::add_value(const char* name, const Any& value, Flags flags)
{
    m_owned.emplace_back(new NamedValue(name, value, flags));
    m_items.push_back(m_owned.back().get());
    return m_items.back();
}

} // namespace CORBA
