#include "CPPResolver.h"

#include "CxxTypeMapping.h"

#include <algorithm>
#include <bitset>
#include <iterator>
#include <string_view>
#include <unordered_set>

namespace {

// Every keyword of C++ up to C++20 and the alternative tokens.
const char* const cxx_keywords[] = {
    "alignas",   "alignof",      "and",       "and_eq",      "asm",          "auto",
    "bitand",    "bitor",        "bool",      "break",       "case",         "catch",
    "char",      "char16_t",     "char32_t",  "char8_t",     "class",        "co_await",
    "co_return", "co_yield",     "compl",     "concept",     "const",        "const_cast",
    "consteval", "constexpr",    "constinit", "continue",    "decltype",     "default",
    "delete",    "do",           "double",    "dynamic_cast", "else",        "enum",
    "explicit",  "export",       "extern",    "false",       "float",        "for",
    "friend",    "goto",         "if",        "inline",      "int",          "long",
    "mutable",   "namespace",    "new",       "noexcept",    "not",          "not_eq",
    "nullptr",   "operator",     "or",        "or_eq",       "private",      "protected",
    "public",    "register",     "reinterpret_cast", "requires", "return",   "short",
    "signed",    "sizeof",       "static",    "static_assert", "static_cast", "struct",
    "switch",    "template",     "this",      "thread_local", "throw",       "true",
    "try",       "typedef",      "typeid",    "typename",    "union",        "unsigned",
    "using",     "virtual",      "void",      "volatile",    "wchar_t",      "while",
    "xor",       "xor_eq",
};

// The words, and what lets most names be turned away without hashing them
// (names are asked for millions of times): the shortest and longest word,
// and the letters words start with.
struct Keywords {
    std::unordered_set<std::string_view> words;
    std::size_t shortest = std::string_view::npos;
    std::size_t longest = 0;
    std::bitset<256> first_letters;

    Keywords() : words(std::begin(cxx_keywords), std::end(cxx_keywords))
    {
        for (std::string_view w : words) {
            shortest = std::min(shortest, w.size());
            longest = std::max(longest, w.size());
            first_letters.set(static_cast<unsigned char>(w.front()));
        }
    }

    bool contain(std::string_view name) const
    {
        if (name.size() < shortest || name.size() > longest ||
            !first_letters.test(static_cast<unsigned char>(name.front())))
            return false;
        return words.count(name) != 0;
    }
};

} // namespace

bool CPPResolver::is_cxx_keyword(const std::string& name)
{
    static const Keywords keywords;
    return keywords.contain(name);
}

bool CPPResolver::is_reserved(const std::string& name) const { return is_cxx_keyword(name); }

const char* CPPResolver::get_predef_type(AST_PredefinedType::PredefinedType pt)
{
    switch (pt) {
    case AST_PredefinedType::PT_typecode: return "CORBA::TypeCode_ptr";
    case AST_PredefinedType::PT_principal: return "CORBA::Principal_ptr";
    default: return CxxTypeMapping::predefined_base(pt);
    }
}
