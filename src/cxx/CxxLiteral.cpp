#include "CxxLiteral.h"

#include "AST_EnumVal.h"
#include "AST_Expression.h"
#include "CxxTypeMapping.h"

#include <cctype>
#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <locale>
#include <sstream>
#include <vector>

namespace {

bool plain_char(unsigned long code) { return code >= 0x20 && code < 0x7f; }

// The escape of a character inside a literal delimited by `quote`.
std::string escaped(unsigned long code, char quote)
{
    if (code == static_cast<unsigned long>(quote) || code == '\\' || code == '?')
        return std::string("\\") + static_cast<char>(code);
    if (plain_char(code))
        return std::string(1, static_cast<char>(code));
    // Three octal digits always, so that a following digit cannot be read
    // as part of the escape.
    std::ostringstream os;
    os << '\\' << std::oct << std::setw(3) << std::setfill('0') << (code & 0777);
    return os.str();
}

// The code points of UTF-8 text; a malformed byte stands for itself.
std::vector<unsigned long> code_points(const std::string& text)
{
    std::vector<unsigned long> out;
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        const int extra = c >= 0xf0 ? 3 : c >= 0xe0 ? 2 : c >= 0xc0 ? 1 : 0;
        unsigned long cp = extra == 3 ? c & 0x07 : extra == 2 ? c & 0x0f : extra == 1 ? c & 0x1f : c;
        bool ok = i + extra < text.size() || extra == 0;
        for (int k = 1; ok && k <= extra; ++k) {
            const unsigned char cc = static_cast<unsigned char>(text[i + k]);
            ok = (cc & 0xc0) == 0x80;
            cp = (cp << 6) | (cc & 0x3f);
        }
        if (!ok) {
            out.push_back(c);
            ++i;
            continue;
        }
        out.push_back(cp);
        i += extra + 1;
    }
    return out;
}

std::string hex(unsigned long code)
{
    std::ostringstream os;
    os << std::hex << code;
    return os.str();
}

template <class T>
std::string floating(long double v, const char* type, const char* suffix)
{
    const T value = static_cast<T>(v);
    if (std::isnan(value))
        return std::string("std::numeric_limits<") + type + ">::quiet_NaN()";
    if (std::isinf(value))
        return std::string(value < 0 ? "-" : "") + "std::numeric_limits<" + type + ">::infinity()";
    // The shortest text that reads back as the same value.
    std::string text;
    for (int digits = 1; digits <= std::numeric_limits<T>::max_digits10; ++digits) {
        std::ostringstream os;
        os.imbue(std::locale::classic());
        os << std::setprecision(digits) << value;
        text = os.str();
        std::istringstream back(text);
        back.imbue(std::locale::classic());
        T read = 0;
        if (back >> read && read == value)
            break;
    }
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text + suffix;
}

std::string signed_integer(std::int64_t v, AST_Expression::ExprType t)
{
    if (t == AST_Expression::EV_longlong) {
        if (v == std::numeric_limits<std::int64_t>::min())
            return "(-9223372036854775807LL - 1)";
        return std::to_string(v) + "LL";
    }
    if (v == std::numeric_limits<std::int32_t>::min())
        return "(-2147483647 - 1)";
    return std::to_string(v);
}

std::string unsigned_integer(std::uint64_t v, AST_Expression::ExprType t)
{
    switch (t) {
    case AST_Expression::EV_ulong: return std::to_string(v) + "U";
    case AST_Expression::EV_ulonglong: return std::to_string(v) + "ULL";
    default: return std::to_string(v);
    }
}

} // namespace

std::string CxxLiteral::char_literal(unsigned long code, bool wide)
{
    if (!wide)
        return "'" + escaped(code & 0xff, '\'') + "'";
    if (code < 0x80)
        return "L'" + escaped(code, '\'') + "'";
    return "L'\\x" + hex(code) + "'";
}

std::string CxxLiteral::string_literal(const std::string& bytes, bool wide)
{
    std::string text = wide ? "L\"" : "\"";
    if (!wide) {
        // Repository ids and operation names, thousands of them: plain
        // characters go in as they are.
        text.reserve(bytes.size() + 2);
        for (char c : bytes) {
            const auto code = static_cast<unsigned char>(c);
            if (plain_char(code) && c != '"' && c != '\\' && c != '?')
                text += c;
            else
                text += escaped(code, '"');
        }
        return text += '"';
    }
    bool after_hex = false;
    for (unsigned long cp : code_points(bytes)) {
        const bool hex_digit = cp < 0x80 && std::isxdigit(static_cast<int>(cp));
        if (after_hex && hex_digit)
            text += "\" L\""; // a hex escape would swallow the digit
        after_hex = false;
        if (cp < 0x80) {
            text += escaped(cp, '"');
        } else {
            text += "\\x" + hex(cp);
            after_hex = true;
        }
    }
    return text + "\"";
}

std::string CxxLiteral::of(const AST_Expression& e, const CxxTypeMapping& map)
{
    switch (e.type()) {
    case AST_Expression::EV_short:
    case AST_Expression::EV_long:
    case AST_Expression::EV_longlong: return signed_integer(e.signed_int(), e.type());
    case AST_Expression::EV_ushort:
    case AST_Expression::EV_ulong:
    case AST_Expression::EV_ulonglong:
    case AST_Expression::EV_octet: return unsigned_integer(e.unsigned_int(), e.type());
    case AST_Expression::EV_float: return floating<float>(e.float_val(), "float", "F");
    case AST_Expression::EV_double: return floating<double>(e.float_val(), "double", "");
    case AST_Expression::EV_longdouble: return floating<long double>(e.float_val(), "long double", "L");
    case AST_Expression::EV_char: return char_literal(e.unsigned_int(), false);
    case AST_Expression::EV_wchar: return char_literal(e.unsigned_int(), true);
    case AST_Expression::EV_bool: return e.bool_val() ? "true" : "false";
    case AST_Expression::EV_string: return string_literal(e.text(), false);
    case AST_Expression::EV_wstring: return string_literal(e.text(), true);
    case AST_Expression::EV_fixed: return "CORBA::Fixed(" + string_literal(e.text(), false) + ")";
    case AST_Expression::EV_enum: return e.enum_val() ? map.enumerator(e.enum_val()) : "0";
    case AST_Expression::EV_none: break;
    }
    return "0";
}
