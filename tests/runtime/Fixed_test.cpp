// CORBA::Fixed: exact decimal arithmetic of 31 digits, and FixedT<D, S>.
#include <zantic_sys/yvcxx.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

std::string text(const CORBA::Fixed& f)
{
    CORBA::String_var s = f.to_string();
    return std::string(s.in()) + " <" + std::to_string(f.fixed_digits()) + "," + std::to_string(f.fixed_scale()) + ">";
}

const char* const max31 = "9999999999999999999999999999999";
const char* const tiny31 = "0.0000000000000000000000000000001";

TEST(Fixed, ArithmeticTable)
{
    typedef CORBA::Fixed F;
    const struct {
        const char* what;
        F value;
        const char* expected;
    } cases[] = {
        {"literal keeps no leading or trailing zeros", F("0123.450"), "123.45 <5,2>"},
        {"zero", F("0.00"), "0 <0,0>"},
        {"negative fraction", F("-0.5"), "-0.5 <1,1>"},
        {"d suffix", F("3d"), "3 <1,0>"},
        {"no integral digits", F(".5"), "0.5 <1,1>"},
        {"digits past the 31st cut after the point", F("1.23456789012345678901234567890189"), "1.234567890123456789012345678901 <31,30>"},
        {"integer", F(-1234567890123LL), "-1234567890123 <13,0>"},
        {"largest unsigned", F(18446744073709551615ULL), "18446744073709551615 <20,0>"},
        {"smallest long long", F(-9223372036854775807LL - 1), "-9223372036854775808 <19,0>"},
        {"double, shortest form", F(0.1), "0.1 <1,1>"},
        {"double, large", F(1e20), "100000000000000000000 <21,0>"},
        {"double, small", F(1.5e-10), "0.00000000015 <11,11>"},
        {"double, too small", F(1e-40), "0 <0,0>"},
        {"long double", F(0.25L), "0.25 <2,2>"},
        {"sum", F("1.5") + F(2), "3.5 <2,1>"},
        {"sum aligns scales", F("1.50") + F("2.25"), "3.75 <3,2>"},
        {"difference to zero scale", F("1.10") - F("0.10"), "1 <1,0>"},
        {"difference changes sign", F("0.25") - F("1"), "-0.75 <2,2>"},
        {"sum of opposite signs", F("-5.5") + F("2.25"), "-3.25 <3,2>"},
        {"sum fills 31 digits", F("9999999999999999999999999999.999") + F("0.0001"), "9999999999999999999999999999.999 <31,3>"},
        {"product", F("1.5") * F("1.5"), "2.25 <3,2>"},
        {"product signs", F("-0.2") * F("-3"), "0.6 <1,1>"},
        {"product truncated to 31 digits", F("0.9999999999999999999999999999999") * F("0.9999999999999999999999999999999"), "0.9999999999999999999999999999998 <31,31>"},
        {"product of 31-digit integers overflows?", F("1000000000000000") * F("1000000000000000"), "1000000000000000000000000000000 <31,0>"},
        {"quotient exact", F(10) / F(4), "2.5 <2,1>"},
        {"quotient keeps scale", F("1.00") / F(4), "0.25 <2,2>"},
        {"quotient truncated", F(1) / F(3), "0.3333333333333333333333333333333 <31,31>"},
        {"quotient of negatives truncated towards zero", F(-2) / F(3), "-0.6666666666666666666666666666666 <31,31>"},
        {"quotient large", F("1000000000000000000000000") / F("0.00001"), "100000000000000000000000000000 <30,0>"},
        {"quotient with integral part", F(100) / F(7), "14.28571428571428571428571428571 <31,29>"},
        {"quotient of tiny by large", F(tiny31) / F(10), "0 <0,0>"},
        {"round half away from zero", F("2.5").round(0), "3 <1,0>"},
        {"round negative", F("-2.5").round(0), "-3 <1,0>"},
        {"round carries", F("9.99").round(1), "10 <2,0>"},
        {"round down", F("0.04").round(1), "0 <0,0>"},
        {"round to more digits", F("1.5").round(3), "1.5 <2,1>"},
        {"round 31 nines", F("999999999999999999999999999999.9").round(0), "1000000000000000000000000000000 <31,0>"},
        {"truncate", F("-1.99").truncate(0), "-1 <1,0>"},
        {"truncate keeps digits", F("-12.345").truncate(1), "-12.3 <3,1>"},
        {"negation of zero", -F("0.0"), "0 <0,0>"},
        {"increment", ++F("-0.5"), "0.5 <1,1>"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(text(c.value), c.expected) << c.what;
}

TEST(Fixed, OverflowAndBadInput)
{
    typedef CORBA::Fixed F;
    EXPECT_THROW(F(max31) + F(1), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F(max31) * F(10), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F(max31) / F("0.1"), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F(1) / F(0), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F("10000000000000000000000000000000"), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F(1e31), CORBA::DATA_CONVERSION);
    EXPECT_THROW(F(__builtin_nan("")), CORBA::DATA_CONVERSION);
    EXPECT_THROW(static_cast<CORBA::LongLong>(F("9223372036854775808")), CORBA::DATA_CONVERSION);
    EXPECT_EQ(static_cast<CORBA::LongLong>(F("-9223372036854775808")), -9223372036854775807LL - 1);
    EXPECT_EQ(static_cast<CORBA::LongLong>(F("-12.9")), -12);
    for (const char* bad : {"1.2.3", "", "-", ".", "1e5", "12x", "1d2", "+-1"})
        EXPECT_THROW(F{bad}, CORBA::BAD_PARAM) << bad;
    EXPECT_THROW(F(static_cast<const char*>(nullptr)), CORBA::BAD_PARAM);
}

TEST(Fixed, ComparesConvertsAndStreams)
{
    typedef CORBA::Fixed F;
    EXPECT_EQ(F("1.20"), F("1.2"));
    EXPECT_LT(F("-3"), F("-2.99"));
    EXPECT_GT(F(tiny31), F(0));
    EXPECT_LT(F("0.5"), F(1));
    EXPECT_TRUE(!F("0.000"));
    EXPECT_EQ(static_cast<CORBA::LongDouble>(F("0.1")), 0.1L);
    EXPECT_EQ(static_cast<CORBA::LongDouble>(F("-12.5")), -12.5L);
    std::ostringstream out;
    out << F("-3.140");
    EXPECT_EQ(out.str(), "-3.14");
    std::istringstream in("  -12.50d rest");
    F read;
    in >> read;
    EXPECT_EQ(read, F("-12.5"));
    std::string rest;
    in >> rest;
    EXPECT_EQ(rest, "rest");
    std::istringstream bad("x");
    bad >> read;
    EXPECT_TRUE(bad.fail());
}

TEST(FixedT, FitsEveryValueToItsDigitsAndScale)
{
    typedef YV_Cxx::FixedT<5, 2> Money;
    Money m = CORBA::Fixed("123.456");
    EXPECT_EQ(text(m), "123.45 <5,2>");
    m = 7;
    EXPECT_EQ(text(m), "7 <1,0>");
    m = 2.675;
    EXPECT_EQ(text(m), "2.67 <3,2>");
    m += CORBA::Fixed("0.009");
    EXPECT_EQ(text(m), "2.67 <3,2>") << "the sum is cut to the scale";
    m /= 3;
    EXPECT_EQ(text(m), "0.89 <2,2>");
    EXPECT_THROW(m = CORBA::Fixed("1000"), CORBA::DATA_CONVERSION);
    EXPECT_THROW(Money(-1000), CORBA::DATA_CONVERSION);
    EXPECT_EQ(text(Money("-999.999")), "-999.99 <5,2>");
    // A FixedT is a Fixed and nothing more.
    static_assert(sizeof(Money) == sizeof(CORBA::Fixed), "no state of its own");
    const CORBA::Fixed& base = m;
    EXPECT_EQ(base, CORBA::Fixed("0.89"));
    EXPECT_EQ(Money::digits, 5);
    EXPECT_EQ(Money::scale, 2);
}

} // namespace
