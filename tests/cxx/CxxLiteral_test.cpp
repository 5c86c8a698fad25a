// C++ literals of IDL constant values: each must read back, in C++, as the
// value of the IDL type it was evaluated for.
#include "AST_Expression.h"
#include "CPPResolver.h"
#include "CxxLiteral.h"
#include "CxxTypeMapping.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using E = AST_Expression;

struct LiteralCase {
    E value;
    const char* literal;
};

TEST(CxxLiteralTest, ValuesOfEveryConstantType)
{
    const LiteralCase cases[] = {
        {E::signed_value(E::EV_short, -32768), "-32768"},
        {E::signed_value(E::EV_long, std::numeric_limits<std::int32_t>::min()), "(-2147483647 - 1)"},
        {E::signed_value(E::EV_long, 42), "42"},
        {E::signed_value(E::EV_longlong, std::numeric_limits<std::int64_t>::min()), "(-9223372036854775807LL - 1)"},
        {E::signed_value(E::EV_longlong, -5), "-5LL"},
        {E::unsigned_value(E::EV_ushort, 65535), "65535"},
        {E::unsigned_value(E::EV_ulong, 4294967295u), "4294967295U"},
        {E::unsigned_value(E::EV_ulonglong, 18446744073709551615ull), "18446744073709551615ULL"},
        {E::unsigned_value(E::EV_octet, 255), "255"},
        {E::float_value(E::EV_float, 1.5L), "1.5F"},
        {E::float_value(E::EV_double, 2.25e-3L), "0.00225"},
        {E::float_value(E::EV_double, 3.0L), "3.0"},
        {E::float_value(E::EV_double, 1e300L), "1e+300"},
        {E::float_value(E::EV_longdouble, 0.1L), "0.1L"},
        {E::bool_value(true), "true"},
        {E::char_value(E::EV_char, 'a', "a"), "'a'"},
        {E::char_value(E::EV_char, '\n', "\n"), "'\\012'"},
        {E::char_value(E::EV_char, '\'', "'"), "'\\''"},
        {E::char_value(E::EV_char, 0xff, "\xff"), "'\\377'"},
        {E::char_value(E::EV_wchar, 'x', "x"), "L'x'"},
        {E::char_value(E::EV_wchar, 0x3b1, "\xce\xb1"), "L'\\x3b1'"},
        {E::string_value(E::EV_string, "a\"b\\c?\t"), "\"a\\\"b\\\\c\\?\\011\""},
        // A hex escape would run on into a following hex digit: the literal
        // is broken there.
        {E::string_value(E::EV_wstring, "\xce\xb1" "b1g"), "L\"\\x3b1\" L\"b1g\""},
        {E::string_value(E::EV_wstring, "\xce\xb1-"), "L\"\\x3b1-\""},
        {E::fixed_value("12.50", 4, 2), "CORBA::Fixed(\"12.50\")"},
    };
    CPPResolver resolver(nullptr);
    CxxTypeMapping map(resolver, nullptr);
    for (const LiteralCase& c : cases)
        EXPECT_EQ(CxxLiteral::of(c.value, map), c.literal) << c.literal;
}

} // namespace
