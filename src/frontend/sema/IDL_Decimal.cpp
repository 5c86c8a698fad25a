#include "IDL_Decimal.h"

#include <algorithm>
#include <vector>

namespace {

// Unsigned integers as decimal digit strings, most significant first,
// without leading zeros ("0" for zero).

std::string trim(std::string s)
{
    std::size_t i = 0;
    while (i + 1 < s.size() && s[i] == '0')
        ++i;
    return s.substr(i);
}

int compare(const std::string& a, const std::string& b)
{
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return a.compare(b) < 0 ? -1 : a.compare(b) > 0 ? 1 : 0;
}

std::string add(const std::string& a, const std::string& b)
{
    std::string out;
    int carry = 0;
    for (std::size_t i = 0; i < std::max(a.size(), b.size()) || carry; ++i) {
        int d = carry;
        if (i < a.size())
            d += a[a.size() - 1 - i] - '0';
        if (i < b.size())
            d += b[b.size() - 1 - i] - '0';
        out += static_cast<char>('0' + d % 10);
        carry = d / 10;
    }
    std::reverse(out.begin(), out.end());
    return trim(out);
}

// a - b for a >= b.
std::string sub(const std::string& a, const std::string& b)
{
    std::string out;
    int borrow = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        int d = a[a.size() - 1 - i] - '0' - borrow;
        if (i < b.size())
            d -= b[b.size() - 1 - i] - '0';
        borrow = d < 0;
        out += static_cast<char>('0' + (d + 10) % 10);
    }
    std::reverse(out.begin(), out.end());
    return trim(out);
}

std::string mul(const std::string& a, const std::string& b)
{
    std::vector<int> acc(a.size() + b.size(), 0);
    for (std::size_t i = 0; i < a.size(); ++i)
        for (std::size_t j = 0; j < b.size(); ++j)
            acc[i + j + 1] += (a[i] - '0') * (b[j] - '0');
    for (std::size_t k = acc.size() - 1; k > 0; --k) {
        acc[k - 1] += acc[k] / 10;
        acc[k] %= 10;
    }
    std::string out;
    for (int d : acc)
        out += static_cast<char>('0' + d);
    return trim(out);
}

// Integer quotient of a by b (b non-zero).
std::string div(const std::string& a, const std::string& b)
{
    std::string q, r = "0";
    for (char c : a) {
        r = trim(r + c);
        int d = 0;
        while (compare(r, b) >= 0) {
            r = sub(r, b);
            ++d;
        }
        q += static_cast<char>('0' + d);
    }
    return trim(q);
}

std::string shift(const std::string& a, unsigned zeros) { return a == "0" ? a : a + std::string(zeros, '0'); }

} // namespace

bool IDL_Decimal::parse(const std::string& text, IDL_Decimal& out)
{
    std::string digits;
    unsigned scale = 0;
    bool point = false, any = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c >= '0' && c <= '9') {
            digits += c;
            any = true;
            if (point)
                ++scale;
        } else if (c == '.' && !point) {
            point = true;
        } else if ((c == 'd' || c == 'D') && i + 1 == text.size()) {
            break;
        } else {
            return false;
        }
    }
    if (!any)
        return false;
    out.m_negative = false;
    out.m_digits = trim(digits);
    out.m_scale = scale;
    return true;
}

IDL_Decimal IDL_Decimal::from_integer(bool negative, unsigned long long magnitude)
{
    IDL_Decimal d;
    d.m_digits = std::to_string(magnitude);
    d.m_negative = negative && magnitude != 0;
    return d;
}

IDL_Decimal IDL_Decimal::operator-() const
{
    IDL_Decimal d = *this;
    d.m_negative = !m_negative && !is_zero();
    return d;
}

IDL_Decimal operator+(const IDL_Decimal& a, const IDL_Decimal& b)
{
    unsigned scale = std::max(a.m_scale, b.m_scale);
    std::string x = shift(a.m_digits, scale - a.m_scale), y = shift(b.m_digits, scale - b.m_scale);
    IDL_Decimal r;
    r.m_scale = scale;
    if (a.m_negative == b.m_negative) {
        r.m_digits = add(x, y);
        r.m_negative = a.m_negative;
    } else if (compare(x, y) >= 0) {
        r.m_digits = sub(x, y);
        r.m_negative = a.m_negative;
    } else {
        r.m_digits = sub(y, x);
        r.m_negative = b.m_negative;
    }
    r.m_negative = r.m_negative && !r.is_zero();
    return r;
}

IDL_Decimal operator-(const IDL_Decimal& a, const IDL_Decimal& b) { return a + (-b); }

IDL_Decimal operator*(const IDL_Decimal& a, const IDL_Decimal& b)
{
    IDL_Decimal r;
    r.m_digits = mul(a.m_digits, b.m_digits);
    r.m_scale = a.m_scale + b.m_scale;
    r.m_negative = (a.m_negative != b.m_negative) && !r.is_zero();
    return r;
}

IDL_Decimal operator/(const IDL_Decimal& a, const IDL_Decimal& b)
{
    // a/b = (A / 10^sa) / (B / 10^sb); compute A * 10^(sb + extra) / B
    // with `extra` fraction digits, enough for kMaxDigits significant ones.
    unsigned extra = IDL_Decimal::kMaxDigits + static_cast<unsigned>(b.m_digits.size());
    IDL_Decimal r;
    r.m_digits = div(shift(a.m_digits, b.m_scale + extra), b.m_digits);
    r.m_scale = a.m_scale + extra;
    r.m_negative = (a.m_negative != b.m_negative) && !r.is_zero();
    r = r.normalized();
    r.fit();
    return r.normalized();
}

unsigned IDL_Decimal::digits() const
{
    auto len = static_cast<unsigned>(m_digits.size());
    return std::max(len, m_scale);
}

IDL_Decimal IDL_Decimal::rescaled(unsigned scale) const
{
    IDL_Decimal r = *this;
    if (scale >= m_scale) {
        r.m_digits = shift(m_digits, scale - m_scale);
        r.m_scale = scale;
        return r;
    }
    unsigned drop = m_scale - scale;
    r.m_digits = drop >= m_digits.size() ? "0" : m_digits.substr(0, m_digits.size() - drop);
    r.m_scale = scale;
    r.m_negative = r.m_negative && !r.is_zero();
    return r;
}

IDL_Decimal IDL_Decimal::normalized() const
{
    IDL_Decimal r = *this;
    while (r.m_scale > 0 && r.m_digits.size() > 1 && r.m_digits.back() == '0') {
        r.m_digits.pop_back();
        --r.m_scale;
    }
    if (r.is_zero())
        r.m_scale = 0;
    return r;
}

bool IDL_Decimal::fit()
{
    if (integer_digits() > kMaxDigits)
        return false;
    if (digits() > kMaxDigits)
        *this = rescaled(kMaxDigits - integer_digits());
    return true;
}

std::string IDL_Decimal::text() const
{
    std::string d = m_digits;
    if (d.size() <= m_scale)
        d = std::string(m_scale - d.size() + 1, '0') + d;
    std::string out = m_negative ? "-" : "";
    out += d.substr(0, d.size() - m_scale);
    if (m_scale > 0)
        out += "." + d.substr(d.size() - m_scale);
    return out;
}

long double IDL_Decimal::to_long_double() const
{
    long double v = 0;
    for (char c : m_digits)
        v = v * 10 + (c - '0');
    for (unsigned i = 0; i < m_scale; ++i)
        v /= 10;
    return m_negative ? -v : v;
}
