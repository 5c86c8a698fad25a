// Hash map used by the back ends: a thin layer over std::unordered_map.
// Nothing that reaches generated output may depend on its iteration order.
#ifndef YV_HASHMAP_H
#define YV_HASHMAP_H

#include <functional>
#include <unordered_map>

template <class Key, class Value, class Hash = std::hash<Key>, class Eq = std::equal_to<Key>>
class YV_HashMap {
public:
    // Adds the pair unless the key is present; answers whether it was added.
    bool insert(const Key& k, const Value& v) { return m_map.emplace(k, v).second; }
    bool contains(const Key& k) const { return m_map.find(k) != m_map.end(); }
    const Value* find(const Key& k) const
    {
        auto it = m_map.find(k);
        return it == m_map.end() ? nullptr : &it->second;
    }
    bool erase(const Key& k) { return m_map.erase(k) != 0; }
    void clear() { m_map.clear(); }
    std::size_t size() const { return m_map.size(); }
    bool empty() const { return m_map.empty(); }

    template <class F>
    void for_each(F&& f) const
    {
        for (const auto& kv : m_map)
            f(kv.first, kv.second);
    }

private:
    std::unordered_map<Key, Value, Hash, Eq> m_map;
};

#endif
