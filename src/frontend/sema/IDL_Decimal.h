// An exact decimal number for fixed-point constants: a sign, the digits of
// the unscaled integer and a scale (digits after the point). Arithmetic is
// exact; division stops after 31 significant digits.
#ifndef IDL_DECIMAL_H
#define IDL_DECIMAL_H

#include <string>

class IDL_Decimal {
public:
    // The most digits a fixed-point value may have.
    static constexpr unsigned kMaxDigits = 31;

    IDL_Decimal() = default;
    // From a literal's text: digits with an optional point, an optional
    // trailing 'd' or 'D' ("1.50d"). False when the text is not one.
    static bool parse(const std::string& text, IDL_Decimal& out);
    // From an integer given as sign and magnitude.
    static IDL_Decimal from_integer(bool negative, unsigned long long magnitude);

    IDL_Decimal operator-() const;
    friend IDL_Decimal operator+(const IDL_Decimal& a, const IDL_Decimal& b);
    friend IDL_Decimal operator-(const IDL_Decimal& a, const IDL_Decimal& b);
    friend IDL_Decimal operator*(const IDL_Decimal& a, const IDL_Decimal& b);
    // The quotient to at most kMaxDigits significant digits (truncated);
    // the divisor must not be zero.
    friend IDL_Decimal operator/(const IDL_Decimal& a, const IDL_Decimal& b);

    bool is_zero() const { return m_digits == "0"; }
    bool negative() const { return m_negative; }
    // Digits in all (leading zeros of the integer part left out, at least
    // the scale) and digits after the point.
    unsigned digits() const;
    unsigned scale() const { return m_scale; }
    // Digits before the point.
    unsigned integer_digits() const { return digits() - m_scale; }

    // The value with `scale` fraction digits: digits beyond it are dropped
    // (truncating), missing ones added as zeros.
    IDL_Decimal rescaled(unsigned scale) const;
    // Drops trailing zero fraction digits.
    IDL_Decimal normalized() const;
    // Truncates fraction digits until the value has at most kMaxDigits
    // digits; false when the integer part alone is too long.
    bool fit();

    // "-12.50", "0.5", "3".
    std::string text() const;
    long double to_long_double() const;

private:
    bool m_negative = false;
    std::string m_digits = "0";
    unsigned m_scale = 0;
};

#endif
