// The factory finder: visitor factories registered under text keys.
#ifndef VISITORFF_H
#define VISITORFF_H

#include "VisitorFactory.h"

#include <map>
#include <memory>
#include <string>

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
    std::map<std::string, std::unique_ptr<VisitorFactory>> m_factories;
};

#endif
