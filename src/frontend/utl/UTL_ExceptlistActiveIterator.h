// Walks a raises clause in its order. A null list is an empty clause.
#ifndef UTL_EXCEPTLISTACTIVEITERATOR_H
#define UTL_EXCEPTLISTACTIVEITERATOR_H

#include "UTL_ExceptList.h"

class UTL_ExceptlistActiveIterator {
public:
    explicit UTL_ExceptlistActiveIterator(const UTL_ExceptList* list) : m_list(list) {}

    bool is_done() const { return !m_list || m_pos >= m_list->items().size(); }
    AST_Exception* item() const { return is_done() ? nullptr : m_list->items()[m_pos]; }
    void next()
    {
        if (!is_done())
            ++m_pos;
    }

private:
    const UTL_ExceptList* m_list;
    std::size_t m_pos = 0;
};

#endif
