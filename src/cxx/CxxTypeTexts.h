// The C++ texts of a type (its name, parameter types, streamable class)
// kept on the type's node once CxxTypeMapping has made them: the emitters
// ask for them at every operation that uses the type.
//
// The texts depend on the name resolver, the set of names that get a
// leading "::" and the scope the names are seen from. The resolver is
// fixed for a run of a back end, so the node keeps the texts of one
// resolver and drops them when another asks; each pair of guard and scope
// gets an entry. Text is never changed once made, so a reference stays
// valid as long as the node and the back end's run.
#ifndef CXXTYPETEXTS_H
#define CXXTYPETEXTS_H

#include "AST_Decl.h"

#include <forward_list>
#include <set>
#include <string>

class UTL_Scope;

class CxxTypeTexts : public AST_Decl::Kept {
public:
    enum Text { name, param_in, param_inout, param_out, param_return, streamable, scoped, count };

    struct Entry {
        Entry(const std::set<std::string>* nested, UTL_Scope* from) : nested(nested), from(from) {}
        bool has(Text t) const { return (made >> t) & 1U; }
        // Stores `text` as text `t`; answers the kept copy.
        const std::string& keep(Text t, std::string text)
        {
            texts[t] = std::move(text);
            made |= 1U << t;
            return texts[t];
        }

        const std::set<std::string>* const nested;
        UTL_Scope* const from;
        unsigned made = 0;
        std::string texts[count];
    };

    // The entry of node `d` for names seen from `from` (null: fully
    // scoped), made by resolver number `owner` with guard `nested`.
    static Entry& of(AST_Decl* d, unsigned long long owner, const std::set<std::string>* nested, UTL_Scope* from);

    explicit CxxTypeTexts(unsigned long long owner) : Kept(&tag, owner) {}

private:
    static const char tag;

    std::forward_list<Entry> m_entries;
};

#endif
