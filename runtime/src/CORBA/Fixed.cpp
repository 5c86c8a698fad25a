#include "zantic_sys/CORBA/Fixed.h"

#include "zantic_sys/CORBA/SystemException.h"
#include "zantic_sys/CORBA/string_functions.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <istream>
#include <limits>
#include <ostream>
#include <string>
#include <vector>

namespace CORBA {

namespace {

constexpr int max_digits = Fixed::max_digits;

// Room for the widest intermediate: a dividend of 31 digits shifted left by
// up to 62 places.
constexpr int wide = 96;

[[noreturn]] void overflow() { throw DATA_CONVERSION(0, COMPLETED_NO); }

// Digits of a value, least significant first, aligned to `scale`.
void load(const Fixed& v, Octet* to, int shift)
{
    for (int i = 0; i < max_digits; ++i)
        to[i + shift] = v.yv_digit(static_cast<UShort>(i));
}

// Compares two magnitudes of `n` digits.
int compare_digits(const Octet* a, const Octet* b, int n)
{
    for (int i = n - 1; i >= 0; --i)
        if (a[i] != b[i])
            return a[i] < b[i] ? -1 : 1;
    return 0;
}

// Parses [sign] digits [. digits] [d|D] (with `exponent`: [e [sign] digits]
// instead of the d); false when malformed.
bool parse(const char* p, bool exponent, std::vector<Octet>& digits, int& scale, bool& negative)
{
    digits.clear();
    scale = 0;
    negative = false;
    if (*p == '+' || *p == '-')
        negative = *p++ == '-';
    bool point = false;
    bool any = false;
    for (;; ++p) {
        if (*p >= '0' && *p <= '9') {
            any = true;
            if (!digits.empty() || *p != '0')
                digits.push_back(static_cast<Octet>(*p - '0'));
            if (point)
                ++scale;
        } else if (*p == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!any)
        return false;
    if (exponent && (*p == 'e' || *p == 'E')) {
        int e = 0;
        if (std::from_chars(p + 1 + (p[1] == '+'), p + std::char_traits<char>::length(p), e).ec != std::errc())
            return false;
        scale -= e;
        while (scale < 0) {
            digits.push_back(0);
            ++scale;
        }
        return true;
    }
    if (!exponent && (*p == 'd' || *p == 'D'))
        ++p;
    return *p == '\0';
}

Fixed from_text(const char* text, bool exponent)
{
    std::vector<Octet> digits;
    int scale = 0;
    bool negative = false;
    if (!parse(text, exponent, digits, scale, negative))
        throw BAD_PARAM(0, COMPLETED_NO);
    // Digits far after the point cannot survive: cut them here already.
    while (scale > 0 && (digits.size() > 2 * max_digits || scale > 2 * max_digits)) {
        if (!digits.empty())
            digits.pop_back();
        --scale;
    }
    if (digits.size() > 2 * max_digits)
        overflow();
    return Fixed::yv_from_digits(digits.data(), static_cast<UShort>(digits.size()), static_cast<UShort>(scale), negative);
}

template <class F>
Fixed from_floating(F v)
{
    if (!std::isfinite(v))
        overflow();
    char buffer[64];
    const auto r = std::to_chars(buffer, buffer + sizeof buffer - 1, v, std::chars_format::scientific);
    *r.ptr = '\0';
    return from_text(buffer, true);
}

} // namespace

Fixed::Fixed(Double v) : Fixed(from_floating(v)) {}
Fixed::Fixed(LongDouble v) : Fixed(from_floating(v)) {}

Fixed::Fixed(const char* text)
{
    if (text == nullptr)
        throw BAD_PARAM(0, COMPLETED_NO);
    *this = from_text(text, false);
}

void Fixed::set_integer(bool negative, ULongLong magnitude)
{
    for (int i = 0; magnitude != 0; ++i) {
        m_val[i] = static_cast<Octet>(magnitude % 10);
        magnitude /= 10;
    }
    m_negative = negative;
    m_scale = 0;
    normalize();
}

void Fixed::normalize()
{
    int low = 0;
    while (low < m_scale && m_val[low] == 0)
        ++low;
    if (low != 0) {
        std::copy(m_val + low, m_val + max_digits, m_val);
        std::fill(m_val + max_digits - low, m_val + max_digits, Octet(0));
        m_scale = static_cast<UShort>(m_scale - low);
    }
    int n = max_digits;
    while (n > 0 && m_val[n - 1] == 0)
        --n;
    if (n == 0) {
        m_scale = 0;
        m_negative = false;
    }
    m_digits = static_cast<UShort>(std::max<int>(n, m_scale));
}

Fixed Fixed::fit(const Octet* digits, int count, int scale, bool negative)
{
    int n = count;
    while (n > 0 && digits[n - 1] == 0)
        --n;
    // Cut digits after the point until the value has no more than 31.
    int drop = 0;
    while (drop < n && scale - drop > 0 && (n - drop > max_digits || scale - drop > max_digits))
        ++drop;
    if (n - drop > max_digits)
        overflow();
    Fixed f;
    if (scale - drop > max_digits) {
        // All of the digits were dropped: what is left is zero.
        return f;
    }
    for (int i = drop; i < n; ++i)
        f.m_val[i - drop] = digits[i];
    f.m_scale = static_cast<UShort>(scale - drop);
    f.m_negative = negative;
    f.normalize();
    return f;
}

Fixed Fixed::yv_from_digits(const Octet* digits, UShort count, UShort scale, bool negative)
{
    Octet small[2 * max_digits];
    std::vector<Octet> large;
    Octet* lsb = small;
    if (count > 2 * max_digits) {
        large.resize(count);
        lsb = large.data();
    }
    for (int i = 0; i < count; ++i)
        lsb[i] = digits[count - 1 - i];
    return fit(lsb, count, scale, negative);
}

Fixed::operator LongLong() const
{
    unsigned __int128 v = 0;
    for (int i = max_digits - 1; i >= m_scale; --i)
        v = v * 10 + m_val[i];
    const unsigned __int128 limit = static_cast<unsigned __int128>(std::numeric_limits<LongLong>::max()) + (m_negative ? 1 : 0);
    if (v > limit)
        overflow();
    const ULongLong bits = static_cast<ULongLong>(v);
    return m_negative ? static_cast<LongLong>(~bits + 1u) : static_cast<LongLong>(bits);
}

Fixed::operator LongDouble() const
{
    char* text = to_string();
    LongDouble v = 0;
    std::from_chars(text, text + std::char_traits<char>::length(text), v);
    string_free(text);
    return v;
}

Fixed Fixed::round(UShort scale) const
{
    if (scale >= m_scale)
        return *this;
    const int drop = m_scale - scale;
    Octet d[max_digits + 1] = {};
    std::copy(m_val + drop, m_val + max_digits, d);
    if (m_val[drop - 1] >= 5) {
        for (int i = 0; i <= max_digits; ++i) {
            if (++d[i] < 10)
                break;
            d[i] = 0;
        }
    }
    return fit(d, max_digits + 1, scale, m_negative);
}

Fixed Fixed::truncate(UShort scale) const
{
    if (scale >= m_scale)
        return *this;
    const int drop = m_scale - scale;
    return fit(m_val + drop, max_digits - drop, scale, m_negative);
}

char* Fixed::to_string() const
{
    std::string s;
    if (m_negative)
        s += '-';
    const int integral = m_digits - m_scale;
    if (integral == 0)
        s += '0';
    for (int i = m_digits - 1; i >= m_scale; --i)
        s += static_cast<char>('0' + m_val[i]);
    if (m_scale != 0) {
        s += '.';
        for (int i = m_scale - 1; i >= 0; --i)
            s += static_cast<char>('0' + m_val[i]);
    }
    return string_dup(s.c_str());
}

int Fixed::compare(const Fixed& a, const Fixed& b)
{
    if (a.m_negative != b.m_negative)
        return a.m_negative ? -1 : 1;
    const int scale = std::max(a.m_scale, b.m_scale);
    Octet x[2 * max_digits] = {};
    Octet y[2 * max_digits] = {};
    load(a, x, scale - a.m_scale);
    load(b, y, scale - b.m_scale);
    const int c = compare_digits(x, y, 2 * max_digits);
    return a.m_negative ? -c : c;
}

Fixed& Fixed::operator+=(const Fixed& v)
{
    const int scale = std::max(m_scale, v.m_scale);
    Octet x[2 * max_digits + 1] = {};
    Octet y[2 * max_digits + 1] = {};
    load(*this, x, scale - m_scale);
    load(v, y, scale - v.m_scale);
    const int n = 2 * max_digits + 1;
    bool negative = m_negative;
    if (m_negative == v.m_negative) {
        int carry = 0;
        for (int i = 0; i < n; ++i) {
            const int sum = x[i] + y[i] + carry;
            x[i] = static_cast<Octet>(sum % 10);
            carry = sum / 10;
        }
    } else {
        // Subtract the smaller magnitude from the larger one.
        Octet* big = x;
        const Octet* small = y;
        if (compare_digits(x, y, n) < 0) {
            std::swap_ranges(x, x + n, y);
            negative = v.m_negative;
        }
        int borrow = 0;
        for (int i = 0; i < n; ++i) {
            int d = big[i] - small[i] - borrow;
            borrow = d < 0;
            big[i] = static_cast<Octet>(d + (borrow ? 10 : 0));
        }
    }
    return *this = fit(x, n, scale, negative);
}

Fixed& Fixed::operator-=(const Fixed& v) { return *this += -v; }

Fixed& Fixed::operator*=(const Fixed& v)
{
    int product[2 * max_digits] = {};
    for (int i = 0; i < max_digits; ++i) {
        if (m_val[i] == 0)
            continue;
        for (int j = 0; j < max_digits; ++j)
            product[i + j] += m_val[i] * v.m_val[j];
    }
    Octet digits[2 * max_digits + 1] = {};
    int carry = 0;
    for (int i = 0; i < 2 * max_digits; ++i) {
        const int d = product[i] + carry;
        digits[i] = static_cast<Octet>(d % 10);
        carry = d / 10;
    }
    digits[2 * max_digits] = static_cast<Octet>(carry);
    return *this = fit(digits, 2 * max_digits + 1, m_scale + v.m_scale, m_negative != v.m_negative);
}

Fixed& Fixed::operator/=(const Fixed& v)
{
    if (v.m_digits == 0)
        overflow();
    // The quotient of the integers behind both values, with 31 digits
    // after the point: the dividend is shifted left to make room for them,
    // and fit() cuts what does not survive.
    const int shift = max_digits - m_scale + v.m_scale;
    Octet dividend[wide] = {};
    load(*this, dividend, shift);
    unsigned __int128 divisor = 0;
    for (int i = max_digits - 1; i >= 0; --i)
        divisor = divisor * 10 + v.m_val[i];
    Octet quotient[wide] = {};
    unsigned __int128 rest = 0;
    for (int i = wide - 1; i >= 0; --i) {
        rest = rest * 10 + dividend[i];
        quotient[i] = static_cast<Octet>(rest / divisor);
        rest %= divisor;
    }
    return *this = fit(quotient, wide, max_digits, m_negative != v.m_negative);
}

Fixed& Fixed::operator++() { return *this += Fixed(1); }
Fixed& Fixed::operator--() { return *this -= Fixed(1); }

Fixed Fixed::operator++(int)
{
    Fixed old = *this;
    ++*this;
    return old;
}

Fixed Fixed::operator--(int)
{
    Fixed old = *this;
    --*this;
    return old;
}

Fixed Fixed::operator-() const
{
    Fixed f = *this;
    if (f.m_digits != 0)
        f.m_negative = !f.m_negative;
    return f;
}

std::ostream& operator<<(std::ostream& os, const Fixed& v)
{
    char* text = v.to_string();
    os << text;
    string_free(text);
    return os;
}

std::istream& operator>>(std::istream& is, Fixed& v)
{
    std::istream::sentry sentry(is);
    if (!sentry)
        return is;
    std::string text;
    for (int c = is.peek(); c != std::char_traits<char>::eof(); c = is.peek()) {
        const bool sign = (c == '+' || c == '-') && text.empty();
        if (!sign && !(c >= '0' && c <= '9') && c != '.' && c != 'd' && c != 'D')
            break;
        text += static_cast<char>(is.get());
        if (c == 'd' || c == 'D')
            break;
    }
    try {
        v = Fixed(text.c_str());
    } catch (const SystemException&) {
        is.setstate(std::ios::failbit);
    }
    return is;
}

} // namespace CORBA
