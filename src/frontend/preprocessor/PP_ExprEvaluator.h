// Evaluates the integer constant expression of an #if or #elif line, after
// macro expansion and with `defined` already answered. Arithmetic is done
// in 64 bits, signed unless an operand is unsigned (a U suffix or a value
// beyond the signed range); signed arithmetic whose result does not fit
// is warned about (once per expression) and wraps; remaining identifiers
// count as 0. && || ?: skip the side they do not take, so a
// division by zero there is no error.
#ifndef PP_EXPREVALUATOR_H
#define PP_EXPREVALUATOR_H

#include "IDL_Diagnostics.h"
#include "IDL_Limits.h"
#include "PP_Token.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class PP_Reporter;

class PP_ExprEvaluator {
public:
    // How deep parentheses and ?: may nest: limits.if_depth.
    PP_ExprEvaluator(PP_Reporter& reporter, const IDL_Limits& limits) : m_reporter(reporter), m_limits(limits) {}

    // Evaluates `tokens`; diagnostics without a position of their own go to
    // `where` (the directive). False, after reporting, when the expression
    // is malformed; `value` is then false.
    bool evaluate(const std::vector<PP_Token>& tokens, const PP_Token& where, bool& value);

private:
    struct Value {
        std::uint64_t bits = 0;
        bool is_unsigned = false;
        bool truth() const { return bits != 0; }
    };

    const PP_Token& peek() const;
    bool at(std::string_view punct) const { return peek().is(punct); }
    void expect(std::string_view punct);
    void fail(IDL_Diag id, const PP_Token& tok, std::initializer_list<std::string> args = {});
    // Signed arithmetic at `where` gave a result out of range.
    void overflow(const PP_Token& where);

    Value comma();
    Value conditional();
    Value binary(int min_prec);
    Value unary();
    Value primary();
    Value apply(const std::string_view op, Value a, Value b, const PP_Token& where);
    Value number(const PP_Token& tok);
    Value character(const PP_Token& tok);

    PP_Reporter& m_reporter;
    const IDL_Limits& m_limits;
    const std::vector<PP_Token>* m_tokens = nullptr;
    std::size_t m_pos = 0;
    PP_Token m_end;
    PP_Token m_where;
    std::size_t m_depth = 0;
    // False inside the operand that && || ?: do not take.
    bool m_evaluating = true;
    bool m_failed = false;
    bool m_overflow_reported = false;
};

#endif
