#include "VisitorFF.h"

long VisitorFF::add_factory(const char* key, VisitorFactory* f)
{
    std::unique_ptr<VisitorFactory> owned(f);
    if (!key || !owned)
        return 0;
    auto& slot = m_factories[key];
    long added = slot ? 0 : 1;
    slot = std::move(owned);
    return added;
}

VisitorFactory* VisitorFF::findFactory(const char* key) const
{
    if (!key)
        return nullptr;
    auto it = m_factories.find(std::string_view(key));
    return it == m_factories.end() ? nullptr : it->second.get();
}
