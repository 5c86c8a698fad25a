#include "PP_MacroTable.h"

const PP_Macro* PP_MacroTable::define(PP_Macro macro)
{
    auto fresh = std::make_unique<PP_Macro>(std::move(macro));
    m_first_chars[static_cast<unsigned char>(fresh->name[0])] = true;
    const PP_Macro* old = nullptr;
    auto it = m_macros.find(fresh->name);
    if (it != m_macros.end()) {
        old = it->second.get();
        m_retired.push_back(std::move(it->second));
        m_macros.erase(it);
    }
    std::string_view key = fresh->name;
    m_macros.emplace(key, std::move(fresh));
    return old;
}

void PP_MacroTable::undefine(std::string_view name)
{
    auto it = m_macros.find(name);
    if (it == m_macros.end())
        return;
    m_retired.push_back(std::move(it->second));
    m_macros.erase(it);
}

void PP_MacroTable::clear()
{
    m_macros.clear();
    m_retired.clear();
    m_first_chars.fill(false);
}
