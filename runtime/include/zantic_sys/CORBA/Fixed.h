// Fixed-point decimal values. The value is kept as a long double together
// with its digit count and scale; arithmetic is exact as long as the value
// fits the long double's mantissa (18 decimal digits on common platforms).
#ifndef YV_RT_CORBA_FIXED_H
#define YV_RT_CORBA_FIXED_H

#include "Types.h"

namespace CORBA {

class Fixed {
public:
    Fixed(Long v = 0);
    Fixed(ULong v);
    Fixed(LongLong v);
    Fixed(ULongLong v);
    Fixed(Double v);
    Fixed(LongDouble v);
    // A decimal literal such as "-12.50" or "3.1d" (BAD_PARAM if malformed).
    Fixed(const char* text);

    operator LongLong() const;
    operator LongDouble() const;

    Fixed round(UShort scale) const;
    Fixed truncate(UShort scale) const;
    // The value in decimal with fixed_scale() digits after the point
    // (caller frees it with CORBA::string_free).
    char* to_string() const;

    UShort fixed_digits() const { return m_digits; }
    UShort fixed_scale() const { return m_scale; }

    Fixed& operator+=(const Fixed& v);
    Fixed& operator-=(const Fixed& v);
    Fixed& operator*=(const Fixed& v);
    Fixed& operator/=(const Fixed& v);
    Fixed operator-() const;

    friend Fixed operator+(Fixed a, const Fixed& b) { return a += b; }
    friend Fixed operator-(Fixed a, const Fixed& b) { return a -= b; }
    friend Fixed operator*(Fixed a, const Fixed& b) { return a *= b; }
    friend Fixed operator/(Fixed a, const Fixed& b) { return a /= b; }
    friend bool operator==(const Fixed& a, const Fixed& b) { return a.m_value == b.m_value; }
    friend bool operator!=(const Fixed& a, const Fixed& b) { return a.m_value != b.m_value; }
    friend bool operator<(const Fixed& a, const Fixed& b) { return a.m_value < b.m_value; }
    friend bool operator>(const Fixed& a, const Fixed& b) { return a.m_value > b.m_value; }
    friend bool operator<=(const Fixed& a, const Fixed& b) { return a.m_value <= b.m_value; }
    friend bool operator>=(const Fixed& a, const Fixed& b) { return a.m_value >= b.m_value; }

private:
    Fixed(LongDouble v, UShort scale);
    // Sets the digit count from the value and the scale.
    void normalize();

    LongDouble m_value;
    UShort m_digits = 0;
    UShort m_scale = 0;
};

} // namespace CORBA

#endif
