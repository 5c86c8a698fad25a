// Constant arithmetic: integers at the edges of 64 bits, fixed-point
// decimals, and the fitting of values to their declared types.
#include "AST_Constant.h"
#include "FrontendTestSupport.h"
#include "IDL_Decimal.h"

#include <gtest/gtest.h>

namespace {

struct DecimalCase {
    const char* a;
    char op;
    const char* b;
    const char* result;
};

TEST(Decimal, ExactArithmetic)
{
    const DecimalCase cases[] = {
        {"0.1", '+', "0.2", "0.3"},       {"1.50", '+', "2.5", "4.00"},   {"1", '-', "2.25", "-1.25"},
        {"-1.5", '*', "2", "-3.0"},       {"0.05", '*', "0.05", "0.0025"}, {"1", '/', "4", "0.25"},
        {"1", '/', "3", "0.3333333333333333333333333333333"},
        {"2", '/', "3", "0.6666666666666666666666666666666"},
        {"100", '/', "8", "12.5"},        {"-7", '/', "2", "-3.5"},        {"3", '-', "3", "0"},
    };
    for (const DecimalCase& c : cases) {
        IDL_Decimal a, b;
        ASSERT_TRUE(IDL_Decimal::parse(c.a[0] == '-' ? c.a + 1 : c.a, a));
        ASSERT_TRUE(IDL_Decimal::parse(c.b, b));
        if (c.a[0] == '-')
            a = -a;
        IDL_Decimal r = c.op == '+' ? a + b : c.op == '-' ? a - b : c.op == '*' ? a * b : a / b;
        EXPECT_EQ(r.text(), c.result) << c.a << c.op << c.b;
    }
}

TEST(Decimal, DigitsScaleAndFitting)
{
    IDL_Decimal d;
    ASSERT_TRUE(IDL_Decimal::parse("0012.340d", d));
    EXPECT_EQ(d.text(), "12.340");
    EXPECT_EQ(d.digits(), 5u);
    EXPECT_EQ(d.scale(), 3u);
    EXPECT_EQ(d.normalized().text(), "12.34");
    EXPECT_EQ(d.rescaled(1).text(), "12.3");
    EXPECT_EQ(d.rescaled(5).text(), "12.34000");
    ASSERT_TRUE(IDL_Decimal::parse(".5", d));
    EXPECT_EQ(d.text(), "0.5");
    ASSERT_TRUE(IDL_Decimal::parse(std::string(32, '9'), d));
    EXPECT_FALSE(d.fit());
    ASSERT_TRUE(IDL_Decimal::parse("1." + std::string(40, '1'), d));
    EXPECT_TRUE(d.fit());
    EXPECT_EQ(d.digits(), 31u);
    EXPECT_FALSE(IDL_Decimal::parse("1.2.3", d));
    EXPECT_FALSE(IDL_Decimal::parse("d", d));
}

struct ConstCase {
    const char* decl;
    const char* value;  // as the tree dump writes it
};

TEST(ConstEval, IntegerEdgesAndOperators)
{
    const ConstCase cases[] = {
        {"const long long a = -9223372036854775807 - 1;", "-9223372036854775808"},
        {"const unsigned long long a = 0xFFFFFFFFFFFFFFFF;", "18446744073709551615"},
        {"const long a = -8 >> 1;", "-4"},
        {"const long a = -7 >> 1;", "-4"},
        {"const long a = -1 << 3;", "-8"},
        {"const unsigned short a = ~1;", "65534"},
        {"const short a = ~1;", "-2"},
        {"const long a = -7 / 2;", "-3"},
        {"const long a = -7 % 3;", "-1"},
        {"const long a = -1 & 0xFF;", "255"},
        {"const long a = 5 ^ -1;", "-6"},
        {"const unsigned long a = 0xFFFFFFFF | 0;", "4294967295"},
        {"const fixed a = 10 / 4d;", "2.5d<2,1>"},
        {"typedef fixed<4,2> F; const F a = 3;", "3.00d<4,2>"},
        {"const char a = '\\377';", "char(255)"},
    };
    for (const ConstCase& c : cases) {
        fetest::Parsed p = fetest::parse(c.decl);
        ASSERT_TRUE(p.data) << c.decl << "\n" << p.err;
        std::string dump = fetest::dump(*p.data);
        EXPECT_NE(dump.find(std::string(" a = ") + c.value + " @"), std::string::npos) << c.decl << "\n" << dump;
    }
}

TEST(ConstEval, OutOfRangeAtTheEdges)
{
    const char* bad[] = {
        "const long long a = -9223372036854775807 - 2;",
        "const unsigned long long a = 18446744073709551616;",
        "const long a = 2147483648;",
        "const short a = -32769;",
        "const long a = 1 << 64;",
        "const float a = 1e39;",
        "typedef fixed<4,2> F; const F a = 123.4d;",
        "const unsigned long long a = 4294967296 * 4294967296;",
    };
    for (const char* text : bad) {
        fetest::Parsed p = fetest::parse(text);
        EXPECT_FALSE(p.data) << text;
        EXPECT_EQ(p.errors, 1) << text << "\n" << p.err;
    }
}

} // namespace
