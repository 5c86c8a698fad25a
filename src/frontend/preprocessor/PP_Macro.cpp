#include "PP_Macro.h"

bool PP_Macro::same_definition(const PP_Macro& other) const
{
    if (function_like != other.function_like || variadic != other.variadic || params != other.params ||
        builtin != other.builtin || body.size() != other.body.size())
        return false;
    for (std::size_t i = 0; i < body.size(); ++i) {
        const PP_Token& a = body[i];
        const PP_Token& b = other.body[i];
        if (a.kind != b.kind || a.param != b.param || a.spelling() != b.spelling() ||
            a.has(PP_Token::LeadingSpace) != b.has(PP_Token::LeadingSpace))
            return false;
    }
    return true;
}
