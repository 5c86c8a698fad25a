// Evaluation of constant expressions: literals, the operators of IDL
// constant expressions, and the fitting of a value to the type it is
// declared with (range checks, conversions). Errors are reported at the
// location given and yield an Error value, which later steps pass over
// silently.
#ifndef IDL_CONSTEVAL_H
#define IDL_CONSTEVAL_H

#include "AST_Expression.h"
#include "IDL_ConstValue.h"
#include "IDL_Loc.h"

#include <string>
#include <string_view>

class AST_Type;

class IDL_ConstEval {
public:
    enum class BinaryOp { Or, Xor, And, Shl, Shr, Add, Sub, Mul, Div, Mod };
    enum class UnaryOp { Minus, Plus, Complement };

    static IDL_ConstValue integer_literal(std::string_view text, const IDL_Loc& loc);
    static IDL_ConstValue float_literal(std::string_view text, const IDL_Loc& loc);
    static IDL_ConstValue fixed_literal(std::string_view text, const IDL_Loc& loc);
    // The value of a constant already declared.
    static IDL_ConstValue from_expression(const AST_Expression& e);

    static IDL_ConstValue binary(BinaryOp op, const IDL_ConstValue& a, const IDL_ConstValue& b, const IDL_Loc& loc);
    // `target` is the type the whole expression is for: it gives '~' its
    // width for unsigned types.
    static IDL_ConstValue unary(UnaryOp op, const IDL_ConstValue& a, AST_Expression::ExprType target,
                                const IDL_Loc& loc);

    // The expression kind of a type a constant may have, typedefs looked
    // through; EV_none when no constant can have the type.
    static AST_Expression::ExprType expr_type_of(AST_Type* t);
    // Fits `v` to type `t` (typedefs looked through): checks kind and range,
    // converts, and answers the value as the tree keeps it; an expression of
    // kind EV_none after an error.
    static AST_Expression coerce(const IDL_ConstValue& v, AST_Type* t, const IDL_Loc& loc);

    // The value as a message quotes it: 70000, 'a', "text", TRUE, 1.5d.
    static std::string describe(const IDL_ConstValue& v);
    // A type as a message names it: unsigned long, string<5>, MyType.
    static std::string type_name(AST_Type* t);
};

#endif
