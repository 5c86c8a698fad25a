// The factory finder: visitor factories registered under text keys.
#ifndef VISITORFF_H
#define VISITORFF_H

#include "VisitorFactory.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

class VisitorFF {
public:
    // Registers `f` under `key`; the finder owns and deletes it. A factory
    // already registered under the key is replaced and deleted. Answers 1
    // for a new key, 0 for a replaced one; 0 (and nothing kept) for null.
    long add_factory(const char* key, VisitorFactory* f);
    // The factory registered under `key`, or null.
    VisitorFactory* findFactory(const char* key) const;
    void clear() { m_factories.clear(); }
    std::size_t size() const { return m_factories.size(); }

private:
    // Looked up by the key's characters: the emitters find a factory for
    // every argument and type they write, so no string is made per lookup.
    std::map<std::string, std::unique_ptr<VisitorFactory>, std::less<>> m_factories;
};

#endif
