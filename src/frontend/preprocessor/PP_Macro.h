// One macro definition: its parameters and replacement list.
#ifndef PP_MACRO_H
#define PP_MACRO_H

#include "PP_Token.h"

#include <string>
#include <vector>

struct PP_Macro {
    // Macros whose expansion is computed at each use.
    enum Builtin { None, File, Line };

    std::string name;
    bool function_like = false;
    // The last parameter is "..." (used as __VA_ARGS__).
    bool variadic = false;
    std::vector<std::string> params;
    // Parameters appear as Param tokens, "# param" as one Stringify token,
    // "##" as PasteOp; the first token carries no LeadingSpace.
    std::vector<PP_Token> body;
    Builtin builtin = None;
    // Set while the macro's own expansion is being read: its name is then
    // not expanded again (and gets NoExpand for good).
    bool disabled = false;

    // Same parameters and the same replacement list, whitespace included.
    bool same_definition(const PP_Macro& other) const;
};

#endif
