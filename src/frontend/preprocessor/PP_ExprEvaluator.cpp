#include "PP_ExprEvaluator.h"

#include "PP_Reporter.h"

#include <cstdint>
#include <limits>

namespace {

constexpr std::uint64_t kSignedMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
constexpr std::uint64_t kSignedMin = kSignedMax + 1;

std::int64_t as_signed(std::uint64_t bits)
{
    // Two's complement view without relying on an out-of-range conversion.
    return bits <= kSignedMax ? static_cast<std::int64_t>(bits)
                              : -static_cast<std::int64_t>(~bits) - 1;
}

// Binary operators by precedence: 1 is the loosest.
int precedence(const PP_Token& tok)
{
    if (tok.kind != PP_Token::Punct)
        return 0;
    const std::string_view s = tok.spelling();
    if (s == "||") return 1;
    if (s == "&&") return 2;
    if (s == "|") return 3;
    if (s == "^") return 4;
    if (s == "&") return 5;
    if (s == "==" || s == "!=") return 6;
    if (s == "<" || s == ">" || s == "<=" || s == ">=") return 7;
    if (s == "<<" || s == ">>") return 8;
    if (s == "+" || s == "-") return 9;
    if (s == "*" || s == "/" || s == "%") return 10;
    return 0;
}

int digit_value(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return 99;
}

std::uint64_t shift_left(std::uint64_t bits, std::uint64_t count) { return count >= 64 ? 0 : bits << count; }

std::uint64_t shift_right(std::uint64_t bits, std::uint64_t count, bool is_unsigned)
{
    const bool negative = !is_unsigned && bits > kSignedMax;
    if (count >= 64)
        return negative ? ~std::uint64_t(0) : 0;
    std::uint64_t r = bits >> count;
    if (negative && count > 0)
        r |= ~(~std::uint64_t(0) >> count);  // the sign fills from the left
    return r;
}

} // namespace

bool PP_ExprEvaluator::evaluate(const std::vector<PP_Token>& tokens, const PP_Token& where, bool& value)
{
    m_tokens = &tokens;
    m_pos = 0;
    m_where = where;
    m_end = PP_Token();
    m_depth = 0;
    m_evaluating = true;
    m_failed = false;
    m_overflow_reported = false;
    Value v = comma();
    if (!m_failed && peek().kind != PP_Token::End)
        fail(IDL_Diag::PP_EXPR_EXTRA_TOKEN, peek(), {peek().str()});
    value = !m_failed && v.truth();
    return !m_failed;
}

const PP_Token& PP_ExprEvaluator::peek() const
{
    return m_pos < m_tokens->size() ? (*m_tokens)[m_pos] : m_end;
}

void PP_ExprEvaluator::fail(IDL_Diag id, const PP_Token& tok, std::initializer_list<std::string> args)
{
    if (m_failed)
        return;
    m_failed = true;
    const PP_Token& at = tok.line ? tok : m_where;
    m_reporter.error(id, at.line, at.col, args);
}

void PP_ExprEvaluator::overflow(const PP_Token& where)
{
    if (!m_evaluating || m_overflow_reported)
        return;
    m_overflow_reported = true;
    const PP_Token& at = where.line ? where : m_where;
    m_reporter.warning(IDL_Diag::PP_EXPR_OVERFLOW, at.line, at.col);
}

void PP_ExprEvaluator::expect(std::string_view punct)
{
    if (at(punct)) {
        ++m_pos;
        return;
    }
    if (peek().kind == PP_Token::End)
        fail(IDL_Diag::PP_EXPR_ENDS_BEFORE, peek(), {std::string(punct)});
    else
        fail(IDL_Diag::PP_EXPR_EXPECTED, peek(), {std::string(punct), peek().str()});
}

PP_ExprEvaluator::Value PP_ExprEvaluator::comma()
{
    Value v = conditional();
    while (!m_failed && at(",")) {
        ++m_pos;
        v = conditional();
    }
    return v;
}

PP_ExprEvaluator::Value PP_ExprEvaluator::conditional()
{
    if (m_depth >= m_limits.if_depth) {
        fail(IDL_Diag::PP_EXPR_TOO_DEEP, peek(),
             {std::to_string(m_limits.if_depth), IDL_Limits::option_of(&IDL_Limits::if_depth)});
        return Value();
    }
    ++m_depth;
    Value cond = binary(1);
    if (!m_failed && at("?")) {
        ++m_pos;
        const bool outer = m_evaluating;
        const bool take = cond.truth();
        m_evaluating = outer && take;
        Value a = comma();
        m_evaluating = outer;
        expect(":");
        m_evaluating = outer && !take;
        Value b = m_failed ? Value() : conditional();
        m_evaluating = outer;
        cond = take ? a : b;
        cond.is_unsigned = a.is_unsigned || b.is_unsigned;
    }
    --m_depth;
    return cond;
}

PP_ExprEvaluator::Value PP_ExprEvaluator::binary(int min_prec)
{
    Value lhs = unary();
    for (;;) {
        if (m_failed)
            return lhs;
        const PP_Token& op = peek();
        const int prec = precedence(op);
        if (prec == 0 || prec < min_prec)
            return lhs;
        ++m_pos;
        const bool outer = m_evaluating;
        if ((op.is("&&") && !lhs.truth()) || (op.is("||") && lhs.truth()))
            m_evaluating = false;
        Value rhs = binary(prec + 1);
        m_evaluating = outer;
        if (m_failed)
            return lhs;
        lhs = apply(op.spelling(), lhs, rhs, op);
    }
}

PP_ExprEvaluator::Value PP_ExprEvaluator::unary()
{
    // Prefix operators are gathered first and applied innermost-first, so a
    // long run of them needs no recursion.
    std::vector<std::size_t> ops;
    while (at("-") || at("+") || at("~") || at("!")) {
        ops.push_back(m_pos);
        ++m_pos;
    }
    Value v = primary();
    for (auto it = ops.rbegin(); it != ops.rend() && !m_failed; ++it) {
        const PP_Token& op = (*m_tokens)[*it];
        switch (op.text[0]) {
        case '-':
            if (!v.is_unsigned && v.bits == kSignedMin)
                overflow(op);
            v.bits = std::uint64_t(0) - v.bits;
            break;
        case '~':
            v.bits = ~v.bits;
            break;
        case '!':
            v = Value{v.bits == 0 ? 1u : 0u, false};
            break;
        default:
            break;
        }
    }
    return v;
}

PP_ExprEvaluator::Value PP_ExprEvaluator::primary()
{
    const PP_Token& tok = peek();
    switch (tok.kind) {
    case PP_Token::Number:
        ++m_pos;
        return number(tok);
    case PP_Token::CharLit:
        ++m_pos;
        return character(tok);
    case PP_Token::Identifier:
        ++m_pos;
        return Value();
    case PP_Token::End:
        fail(IDL_Diag::PP_EXPR_ENDS_EARLY, tok);
        return Value();
    default:
        break;
    }
    if (tok.is('(')) {
        ++m_pos;
        Value v = comma();
        if (!m_failed)
            expect(")");
        return v;
    }
    fail(IDL_Diag::PP_EXPR_EXPECTED_VALUE, tok, {tok.str()});
    return Value();
}

PP_ExprEvaluator::Value PP_ExprEvaluator::apply(const std::string_view op, Value a, Value b, const PP_Token& where)
{
    const bool u = a.is_unsigned || b.is_unsigned;
    auto truth_value = [](bool t) { return Value{t ? 1u : 0u, false}; };
    const char c = op[0];
    if (op.size() == 2 && op[1] == c) {
        switch (c) {
        case '&':
            return truth_value(a.truth() && b.truth());
        case '|':
            return truth_value(a.truth() || b.truth());
        case '=':
            return truth_value(a.bits == b.bits);
        case '<':
        case '>': {
            // The result has the left operand's type; a negative count
            // shifts the other way.
            std::uint64_t count = b.bits;
            bool left = c == '<';
            if (!b.is_unsigned && b.bits > kSignedMax) {
                count = std::uint64_t(0) - b.bits;
                left = !left;
            }
            const std::uint64_t before = a.bits;
            a.bits = left ? shift_left(a.bits, count) : shift_right(a.bits, count, a.is_unsigned);
            // Bits shifted out of a signed value, or into its sign.
            if (left && !a.is_unsigned && before != 0 &&
                (count >= 64 || shift_right(a.bits, count, false) != before))
                overflow(where);
            return a;
        }
        default:
            break;
        }
    }
    if (op == "!=")
        return truth_value(a.bits != b.bits);
    if (op == "<" || op == ">" || op == "<=" || op == ">=") {
        const bool less = u ? a.bits < b.bits : as_signed(a.bits) < as_signed(b.bits);
        const bool greater = u ? a.bits > b.bits : as_signed(a.bits) > as_signed(b.bits);
        if (op == "<")
            return truth_value(less);
        if (op == ">")
            return truth_value(greater);
        return truth_value(op == "<=" ? !greater : !less);
    }
    Value r{0, u};
    std::int64_t ignored;
    switch (c) {
    case '+':
        r.bits = a.bits + b.bits;
        if (!u && __builtin_add_overflow(as_signed(a.bits), as_signed(b.bits), &ignored))
            overflow(where);
        break;
    case '-':
        r.bits = a.bits - b.bits;
        if (!u && __builtin_sub_overflow(as_signed(a.bits), as_signed(b.bits), &ignored))
            overflow(where);
        break;
    case '*':
        r.bits = a.bits * b.bits;
        if (!u && __builtin_mul_overflow(as_signed(a.bits), as_signed(b.bits), &ignored))
            overflow(where);
        break;
    case '/':
    case '%':
        if (b.bits == 0) {
            if (m_evaluating)
                fail(IDL_Diag::PP_EXPR_DIVISION_BY_ZERO, where);
            return r;
        }
        if (u) {
            r.bits = c == '/' ? a.bits / b.bits : a.bits % b.bits;
        } else if (a.bits == kSignedMin && as_signed(b.bits) == -1) {
            // The quotient does not fit; it wraps.
            r.bits = c == '/' ? kSignedMin : 0;
            if (c == '/')
                overflow(where);
        } else {
            const std::int64_t x = as_signed(a.bits), y = as_signed(b.bits);
            r.bits = static_cast<std::uint64_t>(c == '/' ? x / y : x % y);
        }
        break;
    case '&':
        r.bits = a.bits & b.bits;
        break;
    case '^':
        r.bits = a.bits ^ b.bits;
        break;
    case '|':
        r.bits = a.bits | b.bits;
        break;
    default:
        break;
    }
    return r;
}

PP_ExprEvaluator::Value PP_ExprEvaluator::number(const PP_Token& tok)
{
    const std::string_view s = tok.spelling();
    std::size_t i = 0;
    unsigned base = 10;
    if (s.size() > 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
        base = 16;
        i = 2;
    } else if (s.size() > 2 && s[0] == '0' && (s[1] == 'b' || s[1] == 'B')) {
        base = 2;
        i = 2;
    } else if (s[0] == '0') {
        base = 8;
    }
    Value v;
    const std::size_t digits_start = i;
    bool too_large = false;
    for (; i < s.size(); ++i) {
        const int d = digit_value(s[i]);
        if (d >= 16 || (base != 16 && d >= 10))
            break;
        if (static_cast<unsigned>(d) >= base) {
            fail(IDL_Diag::PP_EXPR_BAD_NUMBER, tok, {tok.str()});
            return Value();
        }
        if (v.bits > (~std::uint64_t(0) - static_cast<std::uint64_t>(d)) / base)
            too_large = true;
        v.bits = v.bits * base + static_cast<std::uint64_t>(d);
    }
    if (i == digits_start) {
        fail(IDL_Diag::PP_EXPR_BAD_NUMBER, tok, {tok.str()});
        return Value();
    }
    // Suffixes: u, l, ll in either order and case (ll in one case).
    bool seen_u = false, seen_l = false;
    while (i < s.size()) {
        const char c = s[i];
        if ((c == 'u' || c == 'U') && !seen_u) {
            seen_u = true;
            ++i;
        } else if ((c == 'l' || c == 'L') && !seen_l) {
            seen_l = true;
            i += (i + 1 < s.size() && s[i + 1] == c) ? 2 : 1;
        } else {
            fail(IDL_Diag::PP_EXPR_BAD_NUMBER, tok, {tok.str()});
            return Value();
        }
    }
    if (too_large) {
        fail(IDL_Diag::PP_EXPR_NUMBER_TOO_LARGE, tok, {tok.str()});
        return Value();
    }
    v.is_unsigned = seen_u || v.bits > kSignedMax;
    return v;
}

PP_ExprEvaluator::Value PP_ExprEvaluator::character(const PP_Token& tok)
{
    std::string_view s = tok.spelling();
    const bool wide = s[0] == 'L';
    if (wide)
        s.remove_prefix(1);
    if (tok.has(PP_Token::Unterminated) || s.size() < 3) {
        fail(IDL_Diag::PP_EXPR_BAD_CHAR, tok, {tok.str()});
        return Value();
    }
    s = s.substr(1, s.size() - 2);
    std::uint64_t value = 0;
    std::size_t count = 0;
    for (std::size_t i = 0; i < s.size(); ++count) {
        std::uint64_t c = static_cast<unsigned char>(s[i++]);
        if (c == '\\' && i < s.size()) {
            const char e = s[i++];
            switch (e) {
            case 'n': c = '\n'; break;
            case 't': c = '\t'; break;
            case 'v': c = '\v'; break;
            case 'b': c = '\b'; break;
            case 'r': c = '\r'; break;
            case 'f': c = '\f'; break;
            case 'a': c = '\a'; break;
            case 'x':
                c = 0;
                while (i < s.size() && digit_value(s[i]) < 16)
                    c = (c << 4) | static_cast<std::uint64_t>(digit_value(s[i++]));
                break;
            default:
                if (e >= '0' && e <= '7') {
                    c = static_cast<std::uint64_t>(e - '0');
                    for (int n = 1; n < 3 && i < s.size() && s[i] >= '0' && s[i] <= '7'; ++n)
                        c = (c << 3) | static_cast<std::uint64_t>(s[i++] - '0');
                } else {
                    c = static_cast<unsigned char>(e);  // \\ \' \" \? and the rest
                }
                break;
            }
        }
        value = wide ? c : ((value << 8) | (c & 0xff));
    }
    // A single plain character is a (signed) char, as on the usual hosts.
    if (!wide && count == 1 && value > 0x7f)
        value |= ~std::uint64_t(0xff);
    return Value{value, false};
}
