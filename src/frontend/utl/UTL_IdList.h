// A scoped name as a list of identifiers: the head, then the rest.
#ifndef UTL_IDLIST_H
#define UTL_IDLIST_H

#include "Identifier.h"

#include <vector>

class UTL_IdList {
public:
    UTL_IdList() = default;
    explicit UTL_IdList(Identifier head) { m_ids.push_back(std::move(head)); }
    explicit UTL_IdList(std::vector<Identifier> ids) : m_ids(std::move(ids)) {}

    const std::vector<Identifier>& ids() const { return m_ids; }
    // The last component: the local name of what the list names.
    const Identifier& last() const { return m_ids.back(); }
    bool empty() const { return m_ids.empty(); }

private:
    std::vector<Identifier> m_ids;
};

#endif
