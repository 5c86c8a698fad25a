#include "ValueFactoryRegistry.h"

namespace YV_Cxx {

ValueFactoryRegistry& ValueFactoryRegistry::instance()
{
    static ValueFactoryRegistry registry;
    return registry;
}

ValueFactoryRegistry::~ValueFactoryRegistry()
{
    for (auto& entry : m_factories)
        entry.second->_remove_ref();
}

CORBA::ValueFactory ValueFactoryRegistry::add(const char* id, CORBA::ValueFactory factory)
{
    factory->_add_ref();
    std::lock_guard<std::mutex> lock(m_mutex);
    CORBA::ValueFactory& slot = m_factories[id];
    CORBA::ValueFactory previous = slot;
    slot = factory;
    return previous;
}

CORBA::ValueFactory ValueFactoryRegistry::find(const char* id) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_factories.find(id);
    if (it == m_factories.end())
        return nullptr;
    it->second->_add_ref();
    return it->second;
}

bool ValueFactoryRegistry::remove(const char* id)
{
    CORBA::ValueFactory gone;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        auto it = m_factories.find(id);
        if (it == m_factories.end())
            return false;
        gone = it->second;
        m_factories.erase(it);
    }
    gone->_remove_ref();
    return true;
}

} // namespace YV_Cxx
