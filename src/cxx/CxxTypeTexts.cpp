#include "CxxTypeTexts.h"

const char CxxTypeTexts::tag = 0;

CxxTypeTexts::Entry& CxxTypeTexts::of(AST_Decl* d, unsigned long long owner, const std::set<std::string>* nested,
                                      UTL_Scope* from)
{
    std::unique_ptr<AST_Decl::Kept>& slot = d->kept();
    if (!slot || slot->kind != &tag || slot->owner != owner)
        slot = std::make_unique<CxxTypeTexts>(owner);
    auto* kept = static_cast<CxxTypeTexts*>(slot.get());
    for (Entry& e : kept->m_entries)
        if (e.from == from && e.nested == nested)
            return e;
    return kept->m_entries.emplace_front(nested, from);
}
