// Fixed-point decimal values: exact decimal arithmetic of up to 31
// significant digits.
//
// A value keeps its digits and its scale (the count of digits after the
// point) in their smallest form: leading zeros and trailing zeros after the
// point are not kept, so "0123.450" has 5 digits and scale 2, and zero has
// 0 digits and scale 0. An IDL type fixed<D,S> keeps D and S in its C++ type
// (YV_Cxx::FixedT).
//
// Results of arithmetic are exact where they fit 31 digits; otherwise digits
// after the point are cut off (truncation towards zero) until they do. A
// result whose integral part needs more than 31 digits raises
// DATA_CONVERSION, and so does a division by zero.
#ifndef YV_RT_CORBA_FIXED_H
#define YV_RT_CORBA_FIXED_H

#include "Types.h"

#include <iosfwd>
#include <type_traits>

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

namespace CORBA {

class Fixed {
public:
    // The most digits a value has.
    static constexpr UShort max_digits = 31;

    Fixed() = default;
    // Every integer type (Long, ULong, LongLong, ULongLong and the rest).
    template <class I, std::enable_if_t<std::is_integral<I>::value, int> = 0>
    Fixed(I v)
    {
        bool negative = false;
        if constexpr (std::is_signed<I>::value)
            negative = v < 0;
        const ULongLong bits = static_cast<ULongLong>(v);
        set_integer(negative, negative ? ~bits + 1u : bits);
    }
    // The shortest decimal that reads back as `v` (DATA_CONVERSION for
    // infinities, NaN and values of more than 31 integral digits).
    Fixed(Double v);
    Fixed(LongDouble v);
    // A fixed-point literal with an optional sign and an optional trailing
    // d or D, such as "-12.50" or "3.1d" (BAD_PARAM if malformed). Digits
    // past the 31st are cut off after the point.
    Fixed(const char* text);

    // Truncated towards zero (DATA_CONVERSION when it does not fit).
    operator LongLong() const;
    operator LongDouble() const;

    // Rounded half away from zero, or truncated, to `scale` digits after
    // the point (the value itself when it has no more than that).
    Fixed round(UShort scale) const;
    Fixed truncate(UShort scale) const;
    // The value in decimal, with fixed_scale() digits after the point
    // (caller frees it with CORBA::string_free).
    char* to_string() const;

    UShort fixed_digits() const { return m_digits; }
    UShort fixed_scale() const { return m_scale; }

    Fixed& operator+=(const Fixed& v);
    Fixed& operator-=(const Fixed& v);
    Fixed& operator*=(const Fixed& v);
    Fixed& operator/=(const Fixed& v);
    Fixed& operator++();
    Fixed operator++(int);
    Fixed& operator--();
    Fixed operator--(int);
    Fixed operator+() const { return *this; }
    Fixed operator-() const;
    Boolean operator!() const { return m_digits == 0; }

    friend Fixed operator+(const Fixed& a, const Fixed& b) { return Fixed(a) += b; }
    friend Fixed operator-(const Fixed& a, const Fixed& b) { return Fixed(a) -= b; }
    friend Fixed operator*(const Fixed& a, const Fixed& b) { return Fixed(a) *= b; }
    friend Fixed operator/(const Fixed& a, const Fixed& b) { return Fixed(a) /= b; }
    friend Boolean operator==(const Fixed& a, const Fixed& b) { return compare(a, b) == 0; }
    friend Boolean operator!=(const Fixed& a, const Fixed& b) { return compare(a, b) != 0; }
    friend Boolean operator<(const Fixed& a, const Fixed& b) { return compare(a, b) < 0; }
    friend Boolean operator>(const Fixed& a, const Fixed& b) { return compare(a, b) > 0; }
    friend Boolean operator<=(const Fixed& a, const Fixed& b) { return compare(a, b) <= 0; }
    friend Boolean operator>=(const Fixed& a, const Fixed& b) { return compare(a, b) >= 0; }

    // Negative, zero or positive as a is less than, equal to or greater
    // than b.
    static int compare(const Fixed& a, const Fixed& b);

    // The digit with place value 10^(position - fixed_scale()), position
    // 0 being the last digit (0 beyond the value's digits).
    Octet yv_digit(UShort position) const { return position < max_digits ? m_val[position] : 0; }
    bool yv_negative() const { return m_negative; }
    // A value made of `count` digits (most significant first, each 0 to 9)
    // with `scale` of them after the point, cut to 31 digits like the
    // result of arithmetic.
    static Fixed yv_from_digits(const Octet* digits, UShort count, UShort scale, bool negative);

private:
    // The value of `count` digits (least significant first) with `scale` of
    // them after the point, cut to 31 digits.
    static Fixed fit(const Octet* digits, int count, int scale, bool negative);
    void set_integer(bool negative, ULongLong magnitude);
    // Recomputes m_digits; drops trailing zeros after the point and the
    // sign of zero.
    void normalize();

    // Digit magnitudes, least significant first.
    Octet m_val[max_digits] = {};
    UShort m_digits = 0;
    UShort m_scale = 0;
    bool m_negative = false;
};

std::ostream& operator<<(std::ostream& os, const Fixed& v);
// Reads a fixed-point literal (sign, digits, point, optional d); failbit
// when there is none.
std::istream& operator>>(std::istream& is, Fixed& v);

} // namespace CORBA

#endif
