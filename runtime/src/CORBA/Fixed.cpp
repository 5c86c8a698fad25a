#include "zantic_sys/CORBA/Fixed.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/string_functions.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

namespace CORBA {

namespace {

LongDouble scaled(LongDouble v, UShort scale)
{
    return v * std::pow(10.0L, static_cast<LongDouble>(scale));
}

} // namespace

Fixed::Fixed(Long v) : m_value(v) { normalize(); }
Fixed::Fixed(ULong v) : m_value(v) { normalize(); }
Fixed::Fixed(LongLong v) : m_value(static_cast<LongDouble>(v)) { normalize(); }
Fixed::Fixed(ULongLong v) : m_value(static_cast<LongDouble>(v)) { normalize(); }

Fixed::Fixed(Double v) : Fixed(static_cast<LongDouble>(v)) {}

Fixed::Fixed(LongDouble v) : m_value(v)
{
    // The shortest scale (up to 31 digits in all) that gives the value back.
    m_scale = 0;
    while (m_scale < 31 && std::fabs(scaled(m_value, m_scale) - std::round(scaled(m_value, m_scale))) > 1e-9L)
        ++m_scale;
    normalize();
}

Fixed::Fixed(LongDouble v, UShort scale) : m_value(v), m_scale(scale)
{
    normalize();
}

Fixed::Fixed(const char* text) : m_value(0)
{
    if (text == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    std::string digits;
    const char* p = text;
    while (std::isspace(static_cast<unsigned char>(*p)))
        ++p;
    bool negative = false;
    if (*p == '+' || *p == '-')
        negative = *p++ == '-';
    bool point = false;
    UShort scale = 0;
    for (; *p != '\0' && *p != 'd' && *p != 'D'; ++p) {
        if (*p == '.' && !point) {
            point = true;
        } else if (std::isdigit(static_cast<unsigned char>(*p))) {
            digits += *p;
            if (point)
                ++scale;
        } else {
            throw BAD_PARAM(0, COMPLETED_NO);
        }
    }
    if (*p == 'd' || *p == 'D')
        ++p;
    if (*p != '\0' || digits.empty())
        throw BAD_PARAM(0, COMPLETED_NO);
    LongDouble v = 0;
    for (char c : digits)
        v = v * 10 + (c - '0');
    m_value = (negative ? -v : v) / std::pow(10.0L, static_cast<LongDouble>(scale));
    m_scale = scale;
    normalize();
}

void Fixed::normalize()
{
    const LongDouble whole = std::fabs(std::trunc(m_value));
    UShort integral = 0;
    for (LongDouble w = whole; w >= 1.0L; w /= 10.0L)
        ++integral;
    m_digits = static_cast<UShort>(integral + m_scale);
}

Fixed::operator LongLong() const
{
    return static_cast<LongLong>(std::trunc(m_value));
}

Fixed::operator LongDouble() const
{
    return m_value;
}

Fixed Fixed::round(UShort scale) const
{
    if (scale >= m_scale)
        return *this;
    return Fixed(std::round(scaled(m_value, scale)) / std::pow(10.0L, static_cast<LongDouble>(scale)), scale);
}

Fixed Fixed::truncate(UShort scale) const
{
    if (scale >= m_scale)
        return *this;
    return Fixed(std::trunc(scaled(m_value, scale)) / std::pow(10.0L, static_cast<LongDouble>(scale)), scale);
}

char* Fixed::to_string() const
{
    char buffer[80];
    std::snprintf(buffer, sizeof buffer, "%.*Lf", static_cast<int>(m_scale), m_value);
    return string_dup(buffer);
}

Fixed& Fixed::operator+=(const Fixed& v)
{
    *this = Fixed(m_value + v.m_value, std::max(m_scale, v.m_scale));
    return *this;
}

Fixed& Fixed::operator-=(const Fixed& v)
{
    *this = Fixed(m_value - v.m_value, std::max(m_scale, v.m_scale));
    return *this;
}

Fixed& Fixed::operator*=(const Fixed& v)
{
    *this = Fixed(m_value * v.m_value, static_cast<UShort>(std::min(31, m_scale + v.m_scale)));
    return *this;
}

Fixed& Fixed::operator/=(const Fixed& v)
{
    if (v.m_value == 0)
        throw DATA_CONVERSION(0, COMPLETED_NO);
    *this = Fixed(m_value / v.m_value);
    return *this;
}

Fixed Fixed::operator-() const
{
    return Fixed(-m_value, m_scale);
}

} // namespace CORBA
