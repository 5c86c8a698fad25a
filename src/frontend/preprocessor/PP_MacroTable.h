// The macros defined at some point of a run, by name.
#ifndef PP_MACROTABLE_H
#define PP_MACROTABLE_H

#include "PP_Macro.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

class PP_MacroTable {
public:
    // The definition of `name`, or null.
    PP_Macro* find(std::string_view name) const
    {
        if (name.empty() || !m_first_chars[static_cast<unsigned char>(name[0])])
            return nullptr;
        auto it = m_macros.find(name);
        return it == m_macros.end() ? nullptr : it->second.get();
    }
    bool defined(std::string_view name) const { return find(name) != nullptr; }
    // Installs `macro`, replacing an earlier definition of its name. Returns
    // the earlier definition (still alive) or null.
    const PP_Macro* define(PP_Macro macro);
    // Removes the definition of `name`, if any.
    void undefine(std::string_view name);
    void clear();

private:
    // Keys view the names held by the definitions.
    std::unordered_map<std::string_view, std::unique_ptr<PP_Macro>> m_macros;
    // Replaced and removed definitions: an expansion under way may still
    // refer to them, so they live until the table is cleared.
    std::vector<std::unique_ptr<PP_Macro>> m_retired;
    // First characters of defined names: most identifiers are no macros,
    // and this answers for them without hashing.
    std::array<bool, 256> m_first_chars{};
};

#endif
