// A value met while a constant expression is evaluated, before it is fitted
// to the type it is for. Integers are a sign and a 64-bit magnitude, so
// every value from -2^63 to 2^64-1 is exact.
#ifndef IDL_CONSTVALUE_H
#define IDL_CONSTVALUE_H

#include "IDL_Decimal.h"

#include <cstdint>
#include <string>

class AST_EnumVal;

struct IDL_ConstValue {
    enum Kind { Error, Integer, Float, Fixed, Char, WChar, String, WString, Boolean, Enum };

    Kind kind = Error;
    // Integer: sign and magnitude (zero is never negative). Char and WChar:
    // the character code. Boolean: 0 or 1.
    bool negative = false;
    std::uint64_t magnitude = 0;
    long double real = 0;
    IDL_Decimal fixed;
    // String and WString (UTF-8), and a character's spelling.
    std::string text;
    AST_EnumVal* enumerator = nullptr;

    static IDL_ConstValue integer(bool negative, std::uint64_t magnitude)
    {
        IDL_ConstValue v;
        v.kind = Integer;
        v.negative = negative && magnitude != 0;
        v.magnitude = magnitude;
        return v;
    }
    static IDL_ConstValue floating(long double r)
    {
        IDL_ConstValue v;
        v.kind = Float;
        v.real = r;
        return v;
    }
    static IDL_ConstValue decimal(IDL_Decimal d)
    {
        IDL_ConstValue v;
        v.kind = Fixed;
        v.fixed = std::move(d);
        return v;
    }
    static IDL_ConstValue character(bool wide, std::uint32_t code, std::string spelling)
    {
        IDL_ConstValue v;
        v.kind = wide ? WChar : Char;
        v.magnitude = code;
        v.text = std::move(spelling);
        return v;
    }
    static IDL_ConstValue string(bool wide, std::string s)
    {
        IDL_ConstValue v;
        v.kind = wide ? WString : String;
        v.text = std::move(s);
        return v;
    }
    static IDL_ConstValue boolean(bool b)
    {
        IDL_ConstValue v;
        v.kind = Boolean;
        v.magnitude = b ? 1 : 0;
        return v;
    }
    static IDL_ConstValue enumeration(AST_EnumVal* e)
    {
        IDL_ConstValue v;
        v.kind = Enum;
        v.enumerator = e;
        return v;
    }

    bool ok() const { return kind != Error; }
};

#endif
