#include "IDL_ConstEval.h"

#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Fixed.h"
#include "AST_PredefinedType.h"
#include "AST_String.h"
#include "AST_Typedef.h"
#include "IDL_Diagnostics.h"

#include <cerrno>
#include <cfloat>
#include <cstdlib>
#include <limits>

namespace {

using EV = AST_Expression;
using Value = IDL_ConstValue;

constexpr std::uint64_t kInt64Min = std::uint64_t(1) << 63;  // magnitude of the smallest long long

void error(IDL_Diag id, const IDL_Loc& loc, std::initializer_list<std::string> args = {})
{
    IDL_Diagnostics::error(id, loc.file_name(), loc.line, loc.column, args);
}

const char* kind_name(Value::Kind k)
{
    switch (k) {
    case Value::Integer: return "integer";
    case Value::Float: return "floating-point";
    case Value::Fixed: return "fixed-point";
    case Value::Char: return "character";
    case Value::WChar: return "wide character";
    case Value::String: return "string";
    case Value::WString: return "wide string";
    case Value::Boolean: return "boolean";
    case Value::Enum: return "enumerator";
    default: return "erroneous";
    }
}

// Checks that an integer result lies in [-2^63, 2^64-1].
Value checked(bool negative, std::uint64_t magnitude, const IDL_Loc& loc)
{
    if (negative && magnitude > kInt64Min) {
        error(IDL_Diag::CONST_OVERFLOW, loc);
        return Value();
    }
    return Value::integer(negative, magnitude);
}

Value add(const Value& a, const Value& b, const IDL_Loc& loc)
{
    if (a.negative == b.negative) {
        std::uint64_t sum = a.magnitude + b.magnitude;
        if (sum < a.magnitude) {
            error(IDL_Diag::CONST_OVERFLOW, loc);
            return Value();
        }
        return checked(a.negative, sum, loc);
    }
    if (a.magnitude >= b.magnitude)
        return Value::integer(a.negative, a.magnitude - b.magnitude);
    return Value::integer(b.negative, b.magnitude - a.magnitude);
}

Value negate(const Value& a) { return Value::integer(!a.negative, a.magnitude); }

std::uint64_t to_bits(const Value& v) { return v.negative ? ~v.magnitude + 1 : v.magnitude; }

Value from_bits(std::uint64_t bits, bool as_signed)
{
    if (as_signed && (bits >> 63))
        return Value::integer(true, ~bits + 1);
    return Value::integer(false, bits);
}

IDL_Decimal to_decimal(const Value& v)
{
    return v.kind == Value::Fixed ? v.fixed : IDL_Decimal::from_integer(v.negative, v.magnitude);
}

long double to_real(const Value& v)
{
    auto r = static_cast<long double>(v.magnitude);
    return v.kind == Value::Float ? v.real : v.negative ? -r : r;
}

const char* op_spelling(IDL_ConstEval::BinaryOp op)
{
    switch (op) {
    case IDL_ConstEval::BinaryOp::Or: return "|";
    case IDL_ConstEval::BinaryOp::Xor: return "^";
    case IDL_ConstEval::BinaryOp::And: return "&";
    case IDL_ConstEval::BinaryOp::Shl: return "<<";
    case IDL_ConstEval::BinaryOp::Shr: return ">>";
    case IDL_ConstEval::BinaryOp::Add: return "+";
    case IDL_ConstEval::BinaryOp::Sub: return "-";
    case IDL_ConstEval::BinaryOp::Mul: return "*";
    case IDL_ConstEval::BinaryOp::Div: return "/";
    case IDL_ConstEval::BinaryOp::Mod: return "%";
    }
    return "?";
}

Value integer_binary(IDL_ConstEval::BinaryOp op, const Value& a, const Value& b, const IDL_Loc& loc)
{
    using Op = IDL_ConstEval::BinaryOp;
    bool is_signed = a.negative || b.negative;
    switch (op) {
    case Op::Or: return from_bits(to_bits(a) | to_bits(b), is_signed);
    case Op::Xor: return from_bits(to_bits(a) ^ to_bits(b), is_signed);
    case Op::And: return from_bits(to_bits(a) & to_bits(b), is_signed);
    case Op::Shl:
    case Op::Shr:
        if (b.negative || b.magnitude > 63) {
            error(IDL_Diag::CONST_RANGE, loc, {IDL_ConstEval::describe(b), "a shift count (0 to 63)"});
            return Value();
        }
        if (op == Op::Shl)
            return from_bits(to_bits(a) << b.magnitude, a.negative);
        if (a.negative)
            return negate(Value::integer(false, ((a.magnitude - 1) >> b.magnitude) + 1));
        return Value::integer(false, a.magnitude >> b.magnitude);
    case Op::Add: return add(a, b, loc);
    case Op::Sub: return add(a, negate(b), loc);
    case Op::Mul: {
        if (a.magnitude != 0 && b.magnitude > std::numeric_limits<std::uint64_t>::max() / a.magnitude) {
            error(IDL_Diag::CONST_OVERFLOW, loc);
            return Value();
        }
        return checked(a.negative != b.negative, a.magnitude * b.magnitude, loc);
    }
    case Op::Div:
    case Op::Mod:
        if (b.magnitude == 0) {
            error(IDL_Diag::CONST_DIV_ZERO, loc);
            return Value();
        }
        if (op == Op::Div)
            return Value::integer(a.negative != b.negative, a.magnitude / b.magnitude);
        return Value::integer(a.negative, a.magnitude % b.magnitude);
    }
    return Value();
}

// The range of an integer expression kind as [-neg_limit, pos_limit].
bool integer_range(EV::ExprType t, std::uint64_t& neg_limit, std::uint64_t& pos_limit)
{
    switch (t) {
    case EV::EV_short: neg_limit = 32768; pos_limit = 32767; return true;
    case EV::EV_ushort: neg_limit = 0; pos_limit = 65535; return true;
    case EV::EV_long: neg_limit = 2147483648ULL; pos_limit = 2147483647ULL; return true;
    case EV::EV_ulong: neg_limit = 0; pos_limit = 4294967295ULL; return true;
    case EV::EV_longlong: neg_limit = kInt64Min; pos_limit = kInt64Min - 1; return true;
    case EV::EV_ulonglong: neg_limit = 0; pos_limit = std::numeric_limits<std::uint64_t>::max(); return true;
    case EV::EV_octet: neg_limit = 0; pos_limit = 255; return true;
    default: return false;
    }
}

AST_Type* resolve_typedefs(AST_Type* t)
{
    while (AST_Typedef* td = AST_Typedef::narrow_from_decl(t))
        t = td->base_type();
    return t;
}

} // namespace

IDL_ConstValue IDL_ConstEval::integer_literal(std::string_view text, const IDL_Loc& loc)
{
    unsigned base = 10;
    std::size_t i = 0;
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        i = 2;
    } else if (text.size() > 1 && text[0] == '0') {
        base = 8;
        i = 1;
    }
    std::uint64_t v = 0;
    for (; i < text.size(); ++i) {
        char c = text[i];
        unsigned d = c >= '0' && c <= '9' ? unsigned(c - '0') : c >= 'a' && c <= 'f' ? unsigned(c - 'a' + 10)
                                                                                      : unsigned(c - 'A' + 10);
        if (v > (std::numeric_limits<std::uint64_t>::max() - d) / base) {
            error(IDL_Diag::CONST_RANGE, loc, {std::string(text), "unsigned long long"});
            return Value();
        }
        v = v * base + d;
    }
    return Value::integer(false, v);
}

IDL_ConstValue IDL_ConstEval::float_literal(std::string_view text, const IDL_Loc& loc)
{
    std::string s(text);
    errno = 0;
    long double r = std::strtold(s.c_str(), nullptr);
    if (errno == ERANGE && (r > 1 || r < -1)) {
        error(IDL_Diag::CONST_RANGE, loc, {s, "long double"});
        return Value();
    }
    return Value::floating(r);
}

IDL_ConstValue IDL_ConstEval::fixed_literal(std::string_view text, const IDL_Loc& loc)
{
    IDL_Decimal d;
    if (!IDL_Decimal::parse(std::string(text), d) || !d.fit()) {
        error(IDL_Diag::FIXED_TOO_LONG, loc);
        return Value();
    }
    return Value::decimal(d);
}

IDL_ConstValue IDL_ConstEval::from_expression(const AST_Expression& e)
{
    switch (e.type()) {
    case EV::EV_short:
    case EV::EV_long:
    case EV::EV_longlong: {
        std::int64_t v = e.signed_int();
        return v < 0 ? Value::integer(true, ~static_cast<std::uint64_t>(v) + 1)
                     : Value::integer(false, static_cast<std::uint64_t>(v));
    }
    case EV::EV_ushort:
    case EV::EV_ulong:
    case EV::EV_ulonglong:
    case EV::EV_octet: return Value::integer(false, e.unsigned_int());
    case EV::EV_float:
    case EV::EV_double:
    case EV::EV_longdouble: return Value::floating(e.float_val());
    case EV::EV_char: return Value::character(false, static_cast<std::uint32_t>(e.unsigned_int()), e.text());
    case EV::EV_wchar: return Value::character(true, static_cast<std::uint32_t>(e.unsigned_int()), e.text());
    case EV::EV_bool: return Value::boolean(e.bool_val());
    case EV::EV_string: return Value::string(false, e.text());
    case EV::EV_wstring: return Value::string(true, e.text());
    case EV::EV_fixed: {
        IDL_Decimal d;
        std::string t = e.text();
        bool neg = !t.empty() && t[0] == '-';
        if (!IDL_Decimal::parse(neg ? t.substr(1) : t, d))
            return Value();
        return Value::decimal(neg ? -d : d);
    }
    case EV::EV_enum: return Value::enumeration(e.enum_val());
    case EV::EV_none: break;
    }
    return Value();
}

IDL_ConstValue IDL_ConstEval::binary(BinaryOp op, const Value& a, const Value& b, const IDL_Loc& loc)
{
    if (!a.ok() || !b.ok())
        return Value();
    bool arithmetic = op == BinaryOp::Add || op == BinaryOp::Sub || op == BinaryOp::Mul || op == BinaryOp::Div;
    if (a.kind == Value::Integer && b.kind == Value::Integer)
        return integer_binary(op, a, b, loc);
    auto numeric = [](const Value& v, Value::Kind k) { return v.kind == k || v.kind == Value::Integer; };
    if (arithmetic && numeric(a, Value::Fixed) && numeric(b, Value::Fixed)) {
        IDL_Decimal x = to_decimal(a), y = to_decimal(b), r;
        switch (op) {
        case BinaryOp::Add: r = x + y; break;
        case BinaryOp::Sub: r = x - y; break;
        case BinaryOp::Mul: r = x * y; break;
        default:
            if (y.is_zero()) {
                error(IDL_Diag::CONST_DIV_ZERO, loc);
                return Value();
            }
            r = x / y;
            break;
        }
        if (!r.fit()) {
            error(IDL_Diag::FIXED_TOO_LONG, loc);
            return Value();
        }
        return Value::decimal(r);
    }
    if (arithmetic && numeric(a, Value::Float) && numeric(b, Value::Float)) {
        long double x = to_real(a), y = to_real(b);
        switch (op) {
        case BinaryOp::Add: return Value::floating(x + y);
        case BinaryOp::Sub: return Value::floating(x - y);
        case BinaryOp::Mul: return Value::floating(x * y);
        default:
            if (y == 0) {
                error(IDL_Diag::CONST_DIV_ZERO, loc);
                return Value();
            }
            return Value::floating(x / y);
        }
    }
    std::string kinds = kind_name(a.kind);
    if (b.kind != a.kind)
        kinds += std::string(" and ") + kind_name(b.kind);
    error(IDL_Diag::CONST_OPERATOR, loc, {op_spelling(op), kinds});
    return Value();
}

IDL_ConstValue IDL_ConstEval::unary(UnaryOp op, const Value& a, EV::ExprType target, const IDL_Loc& loc)
{
    if (!a.ok())
        return a;
    switch (op) {
    case UnaryOp::Plus:
        if (a.kind == Value::Integer || a.kind == Value::Float || a.kind == Value::Fixed)
            return a;
        break;
    case UnaryOp::Minus:
        if (a.kind == Value::Integer)
            return checked(!a.negative, a.magnitude, loc);
        if (a.kind == Value::Float)
            return Value::floating(-a.real);
        if (a.kind == Value::Fixed)
            return Value::decimal(-a.fixed);
        break;
    case UnaryOp::Complement:
        if (a.kind == Value::Integer) {
            unsigned width = target == EV::EV_octet ? 8 : target == EV::EV_ushort ? 16 : target == EV::EV_ulong ? 32
                           : target == EV::EV_ulonglong ? 64 : 0;
            if (width == 0)
                return add(negate(a), Value::integer(true, 1), loc);  // ~x == -x - 1
            std::uint64_t mask = width == 64 ? ~std::uint64_t(0) : (std::uint64_t(1) << width) - 1;
            return Value::integer(false, ~to_bits(a) & mask);
        }
        break;
    }
    const char* spelling = op == UnaryOp::Plus ? "+" : op == UnaryOp::Minus ? "-" : "~";
    error(IDL_Diag::CONST_OPERATOR, loc, {spelling, kind_name(a.kind)});
    return Value();
}

AST_Expression::ExprType IDL_ConstEval::expr_type_of(AST_Type* t)
{
    t = resolve_typedefs(t);
    if (AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(t)) {
        switch (p->pt()) {
        case AST_PredefinedType::PT_long: return EV::EV_long;
        case AST_PredefinedType::PT_ulong: return EV::EV_ulong;
        case AST_PredefinedType::PT_longlong: return EV::EV_longlong;
        case AST_PredefinedType::PT_ulonglong: return EV::EV_ulonglong;
        case AST_PredefinedType::PT_short: return EV::EV_short;
        case AST_PredefinedType::PT_ushort: return EV::EV_ushort;
        case AST_PredefinedType::PT_float: return EV::EV_float;
        case AST_PredefinedType::PT_double: return EV::EV_double;
        case AST_PredefinedType::PT_longdouble: return EV::EV_longdouble;
        case AST_PredefinedType::PT_char: return EV::EV_char;
        case AST_PredefinedType::PT_wchar: return EV::EV_wchar;
        case AST_PredefinedType::PT_boolean: return EV::EV_bool;
        case AST_PredefinedType::PT_octet: return EV::EV_octet;
        default: return EV::EV_none;
        }
    }
    if (AST_String* s = AST_String::narrow_from_decl(t))
        return s->is_wide() ? EV::EV_wstring : EV::EV_string;
    if (AST_Fixed::narrow_from_decl(t))
        return EV::EV_fixed;
    if (AST_Enum::narrow_from_decl(t))
        return EV::EV_enum;
    return EV::EV_none;
}

AST_Expression IDL_ConstEval::coerce(const Value& v, AST_Type* declared, const IDL_Loc& loc)
{
    if (!v.ok())
        return AST_Expression();
    AST_Type* t = resolve_typedefs(declared);
    EV::ExprType target = expr_type_of(t);
    auto mismatch = [&]() {
        error(IDL_Diag::CONST_TYPE, loc, {kind_name(v.kind), type_name(declared)});
        return AST_Expression();
    };
    auto out_of_range = [&]() {
        error(IDL_Diag::CONST_RANGE, loc, {describe(v), type_name(declared)});
        return AST_Expression();
    };
    std::uint64_t neg_limit = 0, pos_limit = 0;
    if (integer_range(target, neg_limit, pos_limit)) {
        if (v.kind != Value::Integer)
            return mismatch();
        if (v.negative ? v.magnitude > neg_limit : v.magnitude > pos_limit)
            return out_of_range();
        if (target == EV::EV_short || target == EV::EV_long || target == EV::EV_longlong)
            return AST_Expression::signed_value(
                target, v.negative ? static_cast<std::int64_t>(~v.magnitude + 1) : static_cast<std::int64_t>(v.magnitude));
        return AST_Expression::unsigned_value(target, v.magnitude);
    }
    switch (target) {
    case EV::EV_float:
    case EV::EV_double:
    case EV::EV_longdouble: {
        if (v.kind == Value::Integer) {
            error(IDL_Diag::CONST_INTEGER_AS_FLOAT, loc, {type_name(declared)});
            return AST_Expression();
        }
        if (v.kind != Value::Float)
            return mismatch();
        long double r = to_real(v);
        long double limit = target == EV::EV_float ? FLT_MAX : target == EV::EV_double ? DBL_MAX : LDBL_MAX;
        if (r > limit || r < -limit)
            return out_of_range();
        return AST_Expression::float_value(target, r);
    }
    case EV::EV_char:
        if (v.kind != Value::Char)
            return mismatch();
        return AST_Expression::char_value(target, static_cast<std::uint32_t>(v.magnitude), v.text);
    case EV::EV_wchar:
        if (v.kind != Value::WChar && v.kind != Value::Char)
            return mismatch();
        return AST_Expression::char_value(target, static_cast<std::uint32_t>(v.magnitude), v.text);
    case EV::EV_bool:
        if (v.kind != Value::Boolean)
            return mismatch();
        return AST_Expression::bool_value(v.magnitude != 0);
    case EV::EV_string:
    case EV::EV_wstring: {
        bool wide = target == EV::EV_wstring;
        if (v.kind != Value::String && !(wide && v.kind == Value::WString))
            return mismatch();
        auto* s = AST_String::narrow_from_decl(t);
        std::size_t length = v.text.size();
        if (wide) {
            length = 0;
            for (unsigned char c : v.text)
                length += (c & 0xC0) != 0x80;
        }
        if (s && s->max_size() > 0 && length > s->max_size())
            return out_of_range();
        return AST_Expression::string_value(target, v.text);
    }
    case EV::EV_fixed: {
        if (v.kind != Value::Fixed && v.kind != Value::Integer)
            return mismatch();
        IDL_Decimal d = to_decimal(v);
        auto* f = AST_Fixed::narrow_from_decl(t);
        if (f && f->digits() > 0) {
            d = d.rescaled(f->scale());
            if (d.integer_digits() > f->digits() - f->scale())
                return out_of_range();
            return AST_Expression::fixed_value(d.text(), f->digits(), f->scale());
        }
        if (!d.fit()) {
            error(IDL_Diag::FIXED_TOO_LONG, loc);
            return AST_Expression();
        }
        return AST_Expression::fixed_value(d.text(), d.digits(), d.scale());
    }
    case EV::EV_enum: {
        if (v.kind != Value::Enum)
            return mismatch();
        auto* e = AST_Enum::narrow_from_decl(t);
        if (e && v.enumerator->defined_in() != static_cast<UTL_Scope*>(e)) {
            error(IDL_Diag::ENUM_LABEL_FOREIGN, loc, {v.enumerator->local_name()->str(), e->local_name()->str()});
            return AST_Expression();
        }
        return AST_Expression::enum_value(v.enumerator);
    }
    default:
        error(IDL_Diag::CONST_BAD_TYPE, loc, {type_name(declared)});
        return AST_Expression();
    }
}

std::string IDL_ConstEval::describe(const Value& v)
{
    switch (v.kind) {
    case Value::Integer: return (v.negative ? "-" : "") + std::to_string(v.magnitude);
    case Value::Float: {
        char buf[64];
        std::snprintf(buf, sizeof buf, "%Lg", v.real);
        return buf;
    }
    case Value::Fixed: return v.fixed.text() + "d";
    case Value::Char: return "'" + v.text + "'";
    case Value::WChar: return "L'" + v.text + "'";
    case Value::String: return "\"" + v.text + "\"";
    case Value::WString: return "L\"" + v.text + "\"";
    case Value::Boolean: return v.magnitude ? "TRUE" : "FALSE";
    case Value::Enum: return v.enumerator ? v.enumerator->local_name()->str() : "?";
    case Value::Error: break;
    }
    return "?";
}

std::string IDL_ConstEval::type_name(AST_Type* t)
{
    if (!t)
        return "?";
    if (AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(t)) {
        static const char* const names[] = {"long", "unsigned long", "long long", "unsigned long long", "short",
                                            "unsigned short", "float", "double", "long double", "char", "wchar",
                                            "boolean", "octet", "any", "void", "TypeCode", "Principal"};
        auto i = static_cast<std::size_t>(p->pt());
        return i < sizeof names / sizeof names[0] ? names[i] : "?";
    }
    if (AST_String* s = AST_String::narrow_from_decl(t)) {
        std::string n = s->is_wide() ? "wstring" : "string";
        return s->max_size() ? n + "<" + std::to_string(s->max_size()) + ">" : n;
    }
    if (AST_Fixed* f = AST_Fixed::narrow_from_decl(t))
        return "fixed<" + std::to_string(f->digits()) + "," + std::to_string(f->scale()) + ">";
    return t->local_name()->str();
}
