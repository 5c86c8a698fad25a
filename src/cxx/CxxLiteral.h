// C++ literals for the values of IDL constant expressions: constants and
// union labels. Every literal has the C++ type of the IDL type it was
// evaluated for (a suffix or a cast where the plain literal would not).
#ifndef CXXLITERAL_H
#define CXXLITERAL_H

#include <string>

class AST_Expression;
class CxxTypeMapping;

class CxxLiteral {
public:
    // The literal of value `e`; enumerators are named through `map`
    // (fully scoped from the mapping's scope).
    static std::string of(const AST_Expression& e, const CxxTypeMapping& map);

    // A character literal ('a', '\012'); a wide one (L'a', L'\x3b1').
    static std::string char_literal(unsigned long code, bool wide);
    // A string literal of bytes ("a\012"); a wide one of UTF-8 text
    // (L"a\x3b1").
    static std::string string_literal(const std::string& bytes, bool wide);
};

#endif
