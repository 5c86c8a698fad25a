// The evaluated value of a constant expression (constants, union labels,
// bounds). Integers keep their full 64 bits; the type says how to read them.
#ifndef AST_EXPRESSION_H
#define AST_EXPRESSION_H

#include <cstdint>
#include <string>

class AST_EnumVal;

class AST_Expression {
public:
    enum ExprType {
        EV_none,
        EV_short, EV_ushort, EV_long, EV_ulong, EV_longlong, EV_ulonglong,
        EV_float, EV_double, EV_longdouble,
        EV_char, EV_wchar, EV_octet, EV_bool,
        EV_string, EV_wstring,
        EV_fixed,
        EV_enum
    };

    AST_Expression() = default;

    static AST_Expression signed_value(ExprType t, std::int64_t v) { AST_Expression e; e.m_type = t; e.m_int = v; return e; }
    static AST_Expression unsigned_value(ExprType t, std::uint64_t v) { AST_Expression e; e.m_type = t; e.m_uint = v; return e; }
    static AST_Expression float_value(ExprType t, long double v) { AST_Expression e; e.m_type = t; e.m_float = v; return e; }
    static AST_Expression bool_value(bool v) { AST_Expression e; e.m_type = EV_bool; e.m_uint = v; return e; }
    // Characters and strings: narrow ones as bytes, wide ones as UTF-8;
    // a character holds its code in the unsigned value too.
    static AST_Expression char_value(ExprType t, std::uint32_t code, std::string text) { AST_Expression e; e.m_type = t; e.m_uint = code; e.m_text = std::move(text); return e; }
    static AST_Expression string_value(ExprType t, std::string text) { AST_Expression e; e.m_type = t; e.m_text = std::move(text); return e; }
    // A fixed-point value as its canonical decimal text ("123.45").
    static AST_Expression fixed_value(std::string decimal, unsigned digits, unsigned scale) { AST_Expression e; e.m_type = EV_fixed; e.m_text = std::move(decimal); e.m_digits = digits; e.m_scale = scale; return e; }
    static AST_Expression enum_value(AST_EnumVal* v) { AST_Expression e; e.m_type = EV_enum; e.m_enum = v; return e; }

    ExprType type() const { return m_type; }
    std::int64_t signed_int() const { return m_int; }
    std::uint64_t unsigned_int() const { return m_uint; }
    long double float_val() const { return m_float; }
    bool bool_val() const { return m_uint != 0; }
    const std::string& text() const { return m_text; }
    unsigned fixed_digits() const { return m_digits; }
    unsigned fixed_scale() const { return m_scale; }
    AST_EnumVal* enum_val() const { return m_enum; }

    // True for the signed integer kinds (short, long, long long).
    bool is_signed_integer() const { return m_type == EV_short || m_type == EV_long || m_type == EV_longlong; }

private:
    ExprType m_type = EV_none;
    std::int64_t m_int = 0;
    std::uint64_t m_uint = 0;
    long double m_float = 0;
    std::string m_text;
    unsigned m_digits = 0;
    unsigned m_scale = 0;
    AST_EnumVal* m_enum = nullptr;
};

#endif
