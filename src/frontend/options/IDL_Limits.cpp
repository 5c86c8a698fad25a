#include "IDL_Limits.h"

#include <iterator>

namespace {

const IDL_Limits::Entry kEntries[] = {
    {"include-depth", &IDL_Limits::include_depth, "files open inside each other"},
    {"includes", &IDL_Limits::includes, "files included while one input is read"},
    {"preprocessed-size", &IDL_Limits::preprocessed_size, "bytes of preprocessed text, and of files read, per input"},
    {"macro-expansion", &IDL_Limits::macro_expansion, "tokens one macro use expands to"},
    {"macro-tokens", &IDL_Limits::macro_tokens, "tokens all macro uses of one input expand to"},
    {"macro-arg-depth", &IDL_Limits::macro_arg_depth, "macro calls nested in macro arguments"},
    {"if-depth", &IDL_Limits::if_depth, "parentheses and ?: nested in an #if expression"},
    {"nesting", &IDL_Limits::nesting, "scopes, types and expressions nested in IDL"},
    {"inherited", &IDL_Limits::inherited, "ancestors and inherited operations and attributes, summed over all "
                                          "interfaces and value types of one input"},
    {"typedef-depth", &IDL_Limits::typedef_depth, "typedefs naming typedefs, one after the other"},
};

} // namespace

const IDL_Limits::Entry* IDL_Limits::begin_entries() { return std::begin(kEntries); }

const IDL_Limits::Entry* IDL_Limits::end_entries() { return std::end(kEntries); }

bool IDL_Limits::set(const std::string& name, std::size_t value)
{
    for (const Entry& e : kEntries) {
        if (name == e.name) {
            this->*e.member = value;
            return true;
        }
    }
    return false;
}

std::string IDL_Limits::option_of(std::size_t IDL_Limits::*member)
{
    for (const Entry& e : kEntries)
        if (e.member == member)
            return std::string("-fmax-") + e.name;
    return std::string();
}
