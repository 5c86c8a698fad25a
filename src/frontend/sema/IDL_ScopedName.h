// A scoped name as written: "A::B", "::A::B", with the position of each
// component for diagnostics.
#ifndef IDL_SCOPEDNAME_H
#define IDL_SCOPEDNAME_H

#include "IDL_Loc.h"

#include <string>
#include <vector>

struct IDL_ScopedName {
    // Written with a leading "::".
    bool global = false;
    std::vector<std::string> parts;
    std::vector<IDL_Loc> locs;

    // "A::B" or "::A::B".
    std::string text() const
    {
        std::string out = global ? "::" : "";
        for (std::size_t i = 0; i < parts.size(); ++i)
            out += (i ? "::" : "") + parts[i];
        return out;
    }
    const IDL_Loc& loc() const { return locs.front(); }
};

#endif
